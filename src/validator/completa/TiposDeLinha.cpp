#include "validator/completa/TiposDeLinha.h"

#include "common/Numero.h"

#include <algorithm>

namespace quilatador {

namespace {

TipoDeLinha tipoDe(const RegistroRemessa& registro) {
    const auto campo = [&](VistaTexto nome) {
        const auto indice = registro.indiceDoCampo(nome);
        return indice ? registro.campos()[*indice].get() : nullptr;
    };
    const CampoRemessa* const identificador = campo(registro.identificador());
    const Texto conteudo = identificador ? identificador->Valor().texto() : Texto();
    TipoDeLinha tipo{.registro = &registro,
                     .letra = conteudo.size() == 1 ? conteudo.front() : '\0',
                     .sequencial = campo("Sequencial"_t),
                     .convenio = campo("Convenio"_t),
                     .idRegistro = campo("IDRegistro"_t),
                     .julianas = {}};
    for (const auto& data : registro.campos())
        if (data->natureza() == "D"_t && data->formato() == "ADDD"_t) tipo.julianas.push_back(data.get());
    return tipo;
}

} // namespace

TiposDeLinha::TiposDeLinha(ArquivoRemessa& leiaute) : leiaute_(leiaute) {
    for (const auto& tipo : leiaute.tiposRegistros()) {
        tipos_.push_back(tipoDe(*tipo));
        tamanhoUsual_ = std::max(tamanhoUsual_, static_cast<std::size_t>(std::max<std::int16_t>(tipo->Tamanho(), 0)));
    }
}

const TipoDeLinha* TiposDeLinha::reconhecer(VistaTexto linha, std::int64_t lugar) {
    const RegistroRemessa* const registro = leiaute_.adotarLinha(linha, lugar);
    if (!registro) return nullptr;
    const TipoDeLinha*& provavel = provavel_[static_cast<unsigned char>(linha.empty() ? '\0' : linha.front())];
    if (!provavel || provavel->registro != registro)
        provavel = &*std::ranges::find(tipos_, registro, &TipoDeLinha::registro);
    return provavel;
}

const TipoDeLinha* TiposDeLinha::reconhecerDeslocada(VistaTexto linha, std::int64_t lugar) {
    constexpr std::size_t maisBytes = 3;
    for (std::size_t i = 1; i <= std::min(maisBytes, linha.size()); ++i)
        if (const TipoDeLinha* const tipo = reconhecer(linha.substr(i), lugar);
            tipo && tipo->temTamanho(linha.substr(i)))
            return tipo;
    return nullptr;
}

std::optional<std::int64_t> TiposDeLinha::sequencialDe(VistaTexto linha) {
    const TipoDeLinha* const tipo = reconhecer(linha);
    return tipo && tipo->temTamanho(linha) ? sequencialDo(*tipo) : std::nullopt;
}

std::optional<std::int64_t> sequencialDo(const TipoDeLinha& tipo) {
    if (!tipo.sequencial) return std::nullopt;
    if (const auto digitos = numeroDeDigitos(tipo.registro->textoNaLinha(*tipo.sequencial)))
        return static_cast<std::int64_t>(*digitos);
    try {
        return tipo.registro->getValorCampo(*tipo.sequencial).paraContagem();
    } catch (const Falha&) {
        return std::nullopt;
    }
}

} // namespace quilatador
