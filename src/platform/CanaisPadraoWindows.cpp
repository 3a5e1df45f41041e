#include "platform/CanaisPadrao.h"

namespace quilatador {

void ocuparCanaisFechados() noexcept {} // a file never takes the place of a standard handle here

} // namespace quilatador
