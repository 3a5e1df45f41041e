#include "platform/FalhaDeArquivo.h"

#include "support/Falhas.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(FalhaDeArquivo, oQueOSistemaDizEmPalavras) {
    const std::tuple<std::vector<int>, VistaTexto, VistaTexto> casos[] = {
        {{EINVAL, EILSEQ, ENAMETOOLONG}, "52 Gravacao: Nome de arquivo inválido"_t, "57"},
        {{ENOENT, ENOTDIR}, "53 Gravacao: Arquivo não encontrado"_t, "57"},
        {{EAGAIN, EBUSY, ETXTBSY}, "55 Gravacao: Arquivo já está aberto"_t, "57"},
        {{ENOSPC, EFBIG, EDQUOT}, "61 Gravacao: Disco cheio", "61"},
        {{EACCES, EPERM, EROFS}, "70 Gravacao: Permissão negada"_t, "57"},
        {{EISDIR, ELOOP, ENXIO}, "75 Gravacao: Erro de acesso ao caminho/arquivo", "57"},
        {{EIO, ENODEV}, "57 Gravacao: Erro de E/S do dispositivo", "57"},
    };
    for (const auto& [erros, aoAbrir, depois] : casos)
        for (const int erro : erros) {
            EXPECT_EQ(testes::textoDaFalha([&] { throw falhaDeArquivo(erro); }), aoAbrir) << erro;
            EXPECT_EQ(std::to_string(falhaDeTransferencia(erro).numero()), depois) << erro;
        }
}

} // namespace
} // namespace quilatador
