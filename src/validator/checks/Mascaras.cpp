#include "validator/checks/Mascaras.h"

#include "common/modDepuracao.h"

namespace quilatador {

Texto converterMascara(VistaTexto mascara, VistaTexto tipo, int tamanho, Texto& mascaraConvertida) {
    if (tipo != "A"_t && tipo != "N"_t) return {};
    const char lugar = tipo == "A"_t ? 'A' : '9';
    constexpr VistaTexto separadores = ".-/()]["_t;
    Texto mensagem;
    int lugares = 0;
    for (const char c : mascara) {
        if (c == lugar) {
            ++lugares;
            mascaraConvertida.push_back('@');
        } else if (separadores.find(c) != VistaTexto::npos) {
            mensagem = "; Caractere inválido na máscara"_t;
            mascaraConvertida.push_back(c);
        }
    }
    if (lugares > tamanho) mensagem = "; Tamanho do identificador não confere com a máscara!"_t;
    return mensagem;
}

Texto conferirMascara(Texto& identificador, VistaTexto mascara) {
    constexpr VistaTexto naoConfere = "; Identificador não confere com a máscara cadastrada"_t;
    if (identificador.size() != mascara.size()) return Texto(naoConfere);
    Texto semSeparadores;
    for (std::size_t i = 0; i < mascara.size(); ++i) {
        const char c = identificador[i];
        const bool aceito = mascara[i] == '9' ? modDepuracao::isDigito(c) : mascara[i] == 'A' ? true : c == mascara[i];
        if (!aceito) return Texto(naoConfere);
        if (mascara[i] == '9' || mascara[i] == 'A') semSeparadores.push_back(c);
    }
    identificador = semSeparadores;
    return {};
}

} // namespace quilatador
