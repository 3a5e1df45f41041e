#include "layout/BuscaDaLinha.h"

#include "run/PercursoDeLinhas.h"

namespace quilatador {

namespace {

void descrever(LinhaEncontrada& encontrada, VistaTexto linha, ArquivoRemessa& leiaute) {
    encontrada.tamanho = linha.size();
    encontrada.maisComprida = linha.size() == LeitorDeLinhas::maiorLinha;
    const RegistroRemessa* const registro = leiaute.adotarLinha(linha);
    encontrada.regua = registro ? regua(*registro) : regua(linha);
    if (!registro) return;
    encontrada.segmento = registro->nome();
    encontrada.tamanhoNoLeiaute = static_cast<std::size_t>(registro->Tamanho());
}

} // namespace

std::optional<LinhaEncontrada> buscarLinha(const Ambiente& ambiente, ArquivoRemessa& leiaute,
                                           const std::filesystem::path& arquivo, std::int64_t numero,
                                           const std::atomic<bool>& cancelado) {
    PercursoDeLinhas percurso(ambiente, arquivo, cancelado);
    LinhaEncontrada encontrada;
    bool falta = true;
    while (falta) {
        const std::optional<VistaTexto> linha = percurso.proxima();
        if (!linha) break;
        falta = percurso.lidas() != numero || linha->empty();
        if (linha->empty() && encontrada.vaziaAntes == 0) encontrada.vaziaAntes = percurso.lidas();
        if (!falta) descrever(encontrada, *linha, leiaute);
    }
    encontrada.linhas = percurso.lidas();
    return percurso.terminar() ? std::optional(std::move(encontrada)) : std::nullopt;
}

} // namespace quilatador
