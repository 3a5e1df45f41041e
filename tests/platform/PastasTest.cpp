#include "platform/Pastas.h"

#include "support/PastaTemporaria.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(Pastas, ondeEstaODescritorDoLeiaute) {
    const testes::PastaTemporaria raiz;
    const auto programas = raiz / "bin";
    const auto dados = raiz / "share/quilatador";
    std::filesystem::create_directories(programas);
    std::filesystem::create_directories(dados);
    EXPECT_EQ(pastaDoPrograma(programas), programas);
    raiz.escrever("share/quilatador/Arquivo_ZUL702.xml", "");
    EXPECT_EQ(pastaDoPrograma(programas), dados);
    raiz.escrever("bin/Arquivo_ZUL702.xml", "");
    EXPECT_EQ(pastaDoPrograma(programas), programas);
}

} // namespace
} // namespace quilatador
