#include "Alvo.h"

#include "layout/ArquivoRemessaBD.h"

#include <algorithm>
#include <random>

using namespace quilatador;
using namespace quilatador::fuzz;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* dados, std::size_t tamanho, std::size_t maior);

namespace {

/// Where a field lies in a line (0-based), by the letter of its record.
struct Lugar {
    char letra;
    std::size_t inicio;
    std::size_t tamanho;
};

const std::vector<Lugar>& lugares() {
    static const std::vector<Lugar> todos = [] {
        testes::MundoFalso mundo;
        mundo.arquivos.conteudo["/l.xml"] = leiauteDoPrograma();
        const auto leiaute =
            ArquivoRemessaBD::obterArquivoRemessa("/l.xml", mundo.arquivos, mundo.painel, mundo.relogio);
        std::vector<Lugar> lidos;
        for (const auto& tipo : leiaute->tiposRegistros())
            for (const auto& campo : tipo->campos())
                lidos.push_back({tipo->nome().front(), static_cast<std::size_t>(campo->inicio() - 1),
                                 static_cast<std::size_t>(campo->Tamanho())});
        return lidos;
    }();
    return todos;
}

/// Contents that rules look at: nothing, zeros, digits of all kinds, dates, signs, letters.
Texto conteudo(std::mt19937& sorteio, std::size_t tamanho) {
    static constexpr VistaTexto modelos[] = {
        ""_t,         "0"_t,        "1"_t,        "9"_t,    "-1"_t,   "+1"_t, ",5"_t,  "1.5"_t,
        "20260310"_t, "20990230"_t, "00000000"_t, "S"_t,    "N"_t,    "C"_t,  "ACP"_t, "X"_t,
        "1.00.01"_t,  "1.00.02"_t,  "ZUL702"_t,   "4034"_t, "4366"_t, "O"_t,  "6"_t,   "00"_t};
    Texto texto(modelos[sorteio() % std::size(modelos)]);
    const char enchimento = " 0"[sorteio() % 2];
    if (texto.size() < tamanho) texto.insert(sorteio() % 2 == 0 ? texto.size() : 0, tamanho - texto.size(), enchimento);
    return texto.substr(0, tamanho);
}

} // namespace

/// Half of the changes are of one field of one record, so that the rules behind the structure are reached.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* dados, std::size_t tamanho, std::size_t maior,
                                               unsigned semente) {
    constexpr std::size_t linha = 242;
    std::mt19937 sorteio(semente);
    if (tamanho < linha || sorteio() % 2 == 0) return LLVMFuzzerMutate(dados, tamanho, maior);
    std::uint8_t* registro = dados + sorteio() % (tamanho / linha) * linha;
    std::vector<Lugar> doRegistro;
    std::ranges::copy_if(lugares(), std::back_inserter(doRegistro),
                         [&](const Lugar& lugar) { return lugar.letra == static_cast<char>(*registro); });
    if (doRegistro.empty()) return LLVMFuzzerMutate(dados, tamanho, maior);
    const Lugar& lugar = doRegistro[sorteio() % doRegistro.size()];
    const Texto novo = conteudo(sorteio, lugar.tamanho);
    std::ranges::copy(novo, registro + lugar.inicio);
    return tamanho;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    conferirPromessas(TipoArquivo::ZUL702, entrada(dados, tamanho), leiauteDoPrograma(), {});
    return 0;
}
