#include "common/modDepuracao.h"

#include <gtest/gtest.h>

namespace quilatador::modDepuracao {
namespace {

TEST(modDepuracao, cadaCodigoNoSeuConjunto) {
    constexpr VistaTexto especiais = "ÀÁÂÃÄÅÆàáâãäåæªÈÉÊËèéêë&ÌÍÎÏìíîïºÒÓÔÕÖòóôõöÙÚÛÜùúûüŸÝýÿÇçÑñ"_t;
    for (int codigo = 0; codigo < 256; ++codigo) {
        const Texto caractere(1, static_cast<char>(codigo));
        const bool especial = especiais.find(caractere) != VistaTexto::npos;
        EXPECT_EQ(caracteresEspeciais(caractere), especial ? junta(caractere, "(1), "_t) : Texto()) << codigo;
        EXPECT_EQ(isDigito(codigo), "0123456789"_t.find(caractere) != VistaTexto::npos) << codigo;
    }
}

TEST(modDepuracao, caracterePosicaoEVirgula) {
    EXPECT_EQ(caracteresEspeciais(junta(Texto(1000, 'x'), "é"_t)), "é(1001), "_t);
    Texto linha(40, ' ');
    for (const std::size_t lugar : {0u, 15u, 16u, 31u, 32u, 39u})
        linha[lugar] = '&';
    EXPECT_EQ(caracteresEspeciais(linha), "&(1), &(16), &(17), &(32), &(33), &(40), "_t);
}

} // namespace
} // namespace quilatador::modDepuracao
