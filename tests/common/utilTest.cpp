#include "common/util.h"

#include "common/Falha.h"

#include <gtest/gtest.h>

namespace quilatador::util {
namespace {

TEST(util, SelecionarCampo) {
    /// A text box as the window's, which has no property that is asked for.
    struct CaixaDeTexto final : ControlePorNome {
        void definir(VistaTexto propriedade, int valor) override {
            pedidos += junta(propriedade, "="_t, textoDe(valor), ";"_t);
            throw Falha(numeroDeFalha::objetoSemPropriedade, Texto(), Texto());
        }
        [[nodiscard]] int comprimento() const override { return 7; }

        Texto pedidos;
    } caixa;
    SelecionarCampo(caixa);
    EXPECT_EQ(caixa.pedidos, "SelStart=0;sellenght=7;"_t); // misspelt: kept on purpose
}

} // namespace
} // namespace quilatador::util
