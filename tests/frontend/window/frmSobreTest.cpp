#include "frontend/window/frmSobre.h"

#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(frmSobre, zerosCompletaOTextoSemBrancos) {
    struct Caso {
        Texto texto;
        std::int16_t tamanho;
        Texto esperado;
    };
    for (const auto& [texto, tamanho, esperado] :
         {Caso{"7", 2, "07"}, Caso{" 7 ", 2, "07"}, Caso{"123", 2, "123"}, Caso{" 12 ", 2, " 12 "}, Caso{"", 2, "00"},
          Caso{"  ", 3, "000"}, Caso{"7", 0, "7"}, Caso{"7", -1, "7"}}) {
        Texto argumento = texto;
        EXPECT_EQ(frmSobre::Zeros(argumento, tamanho), esperado);
        EXPECT_EQ(argumento, esperado);
    }
}

TEST(frmSobre, aDataEhADoExecutavelOuADoProprioPrograma) {
    testes::ArquivosEmMemoria arquivos;
    testes::LocalidadeFixa localidade;
    const frmSobre sobre(arquivos, localidade, "/programa", "/usr/bin/Quilatador");
    EXPECT_EQ(sobre.versao(), "Versão 1.00.01 - "_t);
    arquivos.datas["/usr/bin/Quilatador"] = fazData(2026, 3, 31);
    EXPECT_EQ(sobre.versao(), "Versão 1.00.01 - março/2026"_t);
    arquivos.datas["/programa/Quilatador.exe"] = fazData(1999, 11, 1);
    EXPECT_EQ(sobre.versao(), "Versão 1.00.01 - novembro/1999"_t);
}

} // namespace
} // namespace quilatador
