#include "platform/DiaLocal.h"

namespace quilatador {

Data diaLocal(std::time_t momento) {
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &momento);
#else
    localtime_r(&momento, &local);
#endif
    return fazData(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon) + 1, static_cast<unsigned>(local.tm_mday));
}

} // namespace quilatador
