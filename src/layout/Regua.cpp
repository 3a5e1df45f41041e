#include "layout/Regua.h"

#include <algorithm>

namespace quilatador {

namespace {

using Estado = PedacoDaRegua::Estado;

/// The value for people. A number has at least the decimals that its field promises.
Texto valorDe(const Valor& valor, std::size_t decimais) {
    Texto texto = valor.texto();
    if (!valor.comoNumero()) return texto;
    std::ranges::replace(texto, '.', ',');
    if (decimais == 0) return texto;
    if (texto.find(',') == Texto::npos) texto.push_back(',');
    const std::size_t escritos = texto.size() - texto.find(',') - 1;
    return texto.append(decimais - std::min(decimais, escritos), '0');
}

PedacoDaRegua pedacoDo(const CampoRemessa& campo, const RegistroRemessa& registro) {
    PedacoDaRegua pedaco{.campo = campo.nome(),
                         .inicio = campo.inicio(),
                         .fim = campo.Fim(),
                         .texto = Texto(registro.textoNaLinha(campo)),
                         .valor = {}};
    if (pedaco.texto.size() < static_cast<std::size_t>(campo.Tamanho())) {
        pedaco.estado = Estado::Cortado;
        return pedaco;
    }
    try {
        const Valor valor = registro.getValorCampo(campo);
        pedaco.valor = valorDe(valor, campo.numeroDecimais());
        const bool semData = campo.natureza() == "D"_t && valor.nulo();
        if (semData || semBrancos(pedaco.texto).empty()) pedaco.estado = Estado::EmBranco;
    } catch (const FalhaDeLeitura&) {
        pedaco.estado = Estado::Ilegivel;
    }
    return pedaco;
}

/// Appends what the line has behind the position `fim` (1-based), if anything.
void juntarSobra(std::vector<PedacoDaRegua>& pedacos, VistaTexto linha, int fim) {
    const VistaTexto sobra = trecho(linha, static_cast<std::size_t>(fim) + 1);
    if (sobra.empty()) return;
    pedacos.push_back({.campo = {},
                       .inicio = fim + 1,
                       .fim = static_cast<int>(linha.size()),
                       .texto = Texto(sobra),
                       .valor = {},
                       .estado = Estado::Sobra});
}

} // namespace

std::vector<PedacoDaRegua> regua(const RegistroRemessa& registro) {
    std::vector<PedacoDaRegua> pedacos;
    for (const auto& campo : registro.campos())
        if (campo->Tamanho() > 0) pedacos.push_back(pedacoDo(*campo, registro));
    juntarSobra(pedacos, registro.linha(), pedacos.empty() ? 0 : pedacos.back().fim);
    return pedacos;
}

std::vector<PedacoDaRegua> regua(VistaTexto linhaSemTipo) {
    std::vector<PedacoDaRegua> pedacos;
    juntarSobra(pedacos, linhaSemTipo, 0);
    return pedacos;
}

} // namespace quilatador
