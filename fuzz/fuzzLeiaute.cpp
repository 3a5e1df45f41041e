#include "Alvo.h"

#include <fstream>
#include <iterator>

using namespace quilatador;
using namespace quilatador::fuzz;

namespace {

const Texto& remessaValida() {
    static const Texto remessa = [] {
        std::ifstream arquivo(QUILATADOR_REMESSA, std::ios::binary);
        return Texto(std::istreambuf_iterator<char>(arquivo), {});
    }();
    return remessa;
}

} // namespace

/// The input is the layout description; a valid remittance is read through whatever comes of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const Texto leiaute = entrada(dados, tamanho);
    const Resultado primeiro = analisar(TipoArquivo::ZUL702, remessaValida(), leiaute, {});
    exigir(primeiro.igualA(analisar(TipoArquivo::ZUL702, remessaValida(), leiaute, {})), "two runs give the same");
    exigir(primeiro.log.ends_with("Depuração terminada!\r\n"_t), "the log has its ending");
    return 0;
}
