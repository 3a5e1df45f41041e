#include "platform/CanaisPadrao.h"

#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace quilatador {

/// The system gives a new descriptor the lowest free number. O_PATH allows neither reading nor writing, and every
/// process can use it on the root, even where there is no /dev/null.
void ocuparCanaisFechados() noexcept {
    for (const int canal : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(canal, F_GETFD) < 0)
            ::open("/", O_PATH); // cppcheck-suppress leakReturnValNotUsed ; it has to stay open
}

} // namespace quilatador
