#include "gerarRemessa/CodigoDeBarras.h"

#include "common/DV.h"
#include "gerarRemessa/Linha.h"

#include <algorithm>

namespace quilatador::gerador {

char digitoVerificador(VistaTexto digitos, int moeda) {
    return (moeda == 6 || moeda == 7 ? DV::CalcularMod10(digitos) : DV::CalculaMod11Barra(digitos)).front();
}

CodigoDeBarras fazerCodigoDeBarras(const DadosDaBarra& dados) {
    // The general check digit covers all digits but its own, which is the fourth.
    std::array<char, 43> base{'8', dados.segmento, static_cast<char>('0' + dados.moeda)};
    escreverDigitos(std::span(base).subspan<3, 11>(), dados.valor);
    std::ranges::copy(dados.empresa, base.begin() + 14);
    std::ranges::copy(dados.campoLivre, base.begin() + 18);

    CodigoDeBarras barra;
    std::copy_n(base.begin(), 3, barra.begin());
    barra[3] = digitoVerificador({base.data(), base.size()}, dados.moeda);
    std::copy(base.begin() + 3, base.end(), barra.begin() + 4);
    return barra;
}

} // namespace quilatador::gerador
