#include "common/LeitorDeLinhas.h"

#include <gtest/gtest.h>

#include <random>

namespace quilatador {
namespace {

constexpr std::size_t bloco = 256 * 1024; // what the reader asks for at once

/// A file that comes in pieces of `pedaco` bytes, as from a slow disk.
class EntradaEmPedacos final : public ArquivoEntrada {
  public:
    EntradaEmPedacos(VistaTexto bytes, std::size_t pedaco) : bytes_(bytes), pedaco_(pedaco) {}

    [[nodiscard]] std::size_t ler(std::span<char> destino) override {
        const std::size_t lidos = bytes_.copy(destino.data(), std::min(destino.size(), pedaco_));
        bytes_.remove_prefix(lidos);
        return lidos;
    }

  private:
    VistaTexto bytes_;
    std::size_t pedaco_;
};

/// The lines of a file, each ended by a line feed.
Texto ler(VistaTexto bytes, std::size_t pedaco = bloco) {
    LeitorDeLinhas leitor(std::make_unique<EntradaEmPedacos>(bytes, pedaco));
    Texto linhas;
    while (const auto linha = leitor.proxima())
        linhas.append(*linha).push_back('\n');
    EXPECT_EQ(leitor.proxima(), std::nullopt); // the end stays the end
    return linhas;
}

/// The same rules, one line at a time.
Texto separar(VistaTexto bytes) {
    bytes = bytes.substr(0, bytes.find('\x1A'));
    Texto linhas;
    while (!bytes.empty()) {
        const std::size_t fim = std::min(bytes.find_first_of("\r\n"_t), bytes.size());
        linhas.append(bytes, 0, std::min(fim, LeitorDeLinhas::maiorLinha)).push_back('\n');
        bytes.remove_prefix(fim);
        bytes.remove_prefix(bytes.starts_with("\r\n"_t) ? 2 : bytes.empty() ? 0 : 1);
    }
    return linhas;
}

TEST(LeitorDeLinhas, finsDeLinhaMisturadosECtrlZ) {
    EXPECT_EQ(ler(""_t), ""_t);
    EXPECT_EQ(ler("a\r\nb\nc\rd"_t), "a\nb\nc\nd\n"_t);
    EXPECT_EQ(ler("\r\n\n\r\r\n"_t), "\n\n\n\n"_t);
    EXPECT_EQ(ler("a\r\nb\x1Ax\r\ny"_t), "a\nb\n"_t);
    EXPECT_EQ(ler("a\r\n\r\n\x1A"_t), "a\n\n"_t);
}

TEST(LeitorDeLinhas, linhaLongaVemCortada) {
    for (const std::size_t tamanho :
         {LeitorDeLinhas::maiorLinha - 1, LeitorDeLinhas::maiorLinha, LeitorDeLinhas::maiorLinha + 1, bloco - 1, bloco,
          bloco + 1, std::size_t{10'000'000}}) {
        const Texto longa(tamanho, '\0');
        for (const Texto& bytes : {junta(longa, "\r\nfim"_t), junta("a\n"_t, longa), junta(longa, "\x1A\r\nfim"_t)})
            for (const std::size_t pedaco : {bloco, std::size_t{50'001}})
                EXPECT_TRUE(ler(bytes, pedaco) == separar(bytes)) << tamanho;
    }
}

TEST(LeitorDeLinhas, comoASeparacaoSimplesEmArquivosAoAcaso) {
    std::minstd_rand sorteio(1);
    const auto ate = [&](std::size_t maior) { return std::uniform_int_distribution<std::size_t>(0, maior)(sorteio); };
    for (unsigned vez = 0; vez < 400; ++vez) {
        const VistaTexto alfabeto = "\x1Axxxxxxxxxx\r\n\r\n\t\0"_t.substr(vez % 4 == 0 ? 0 : 1);
        const std::size_t largura = ate(9);
        Texto bytes;
        for (std::size_t linhas = ate(vez % 50 == 0 ? 60'000 : 40); linhas > 0; --linhas) {
            bytes.append(largura, 'r').append(ate(20) == 0 ? "\n"_t : "\r\n"_t); // mostly of one length, as records are
            if (ate(5) == 0) bytes.push_back(alfabeto[ate(alfabeto.size() - 1)]);
        }
        ASSERT_TRUE(ler(bytes, 1 + ate(vez % 3 == 0 ? 5 : bloco)) == separar(bytes)) << "vez " << vez;
    }
}

} // namespace
} // namespace quilatador
