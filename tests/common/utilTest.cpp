#include "common/util.h"

#include "common/Falha.h"

#include <gtest/gtest.h>

#include <vector>

namespace quilatador::util {
namespace {

/// A text box as the window's: it has a "SelStart", and no property of the other name.
class CaixaDeTexto final : public Controle {
  public:
    void definir(VistaTexto propriedade, int valor) override {
        pedidos.push_back(junta(propriedade, "=", std::to_string(valor)));
        if (propriedade != "SelStart" || semPropriedades) throw Falha(numeroDeFalha::objetoSemPropriedade, "", "");
    }
    [[nodiscard]] int comprimento() const override { return 7; }

    std::vector<Texto> pedidos;
    bool semPropriedades = false;
};

TEST(util, SelecionarCampo) {
    for (const bool semPropriedades : {false, true}) {
        CaixaDeTexto caixa;
        caixa.semPropriedades = semPropriedades;
        SelecionarCampo(caixa);
        EXPECT_EQ(caixa.pedidos, (std::vector<Texto>{"SelStart=0", "sellenght=7"})); // misspelt: kept on purpose
    }
}

} // namespace
} // namespace quilatador::util
