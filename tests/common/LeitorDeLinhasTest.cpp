#include "common/LeitorDeLinhas.h"

#include <gtest/gtest.h>

#include <random>

namespace quilatador {
namespace {

using namespace std::string_view_literals;
using Linhas = std::vector<Texto>;

constexpr std::size_t bloco = 256 * 1024; // what the reader asks for at once, about which ends are placed below

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

Linhas ler(VistaTexto bytes, std::size_t pedaco = bloco) {
    LeitorDeLinhas leitor(std::make_unique<EntradaEmPedacos>(bytes, pedaco));
    Linhas linhas;
    while (const auto linha = leitor.proxima())
        linhas.emplace_back(*linha);
    EXPECT_EQ(leitor.proxima(), std::nullopt); // the end stays the end
    return linhas;
}

/// The same rules, one character at a time.
Linhas separar(VistaTexto bytes) {
    bytes = bytes.substr(0, bytes.find('\x1A'));
    Linhas linhas;
    while (!bytes.empty()) {
        const std::size_t fim = std::min(bytes.find_first_of("\r\n"), bytes.size());
        linhas.emplace_back(bytes.substr(0, std::min(fim, LeitorDeLinhas::maiorLinha)));
        bytes.remove_prefix(fim);
        bytes.remove_prefix(bytes.starts_with("\r\n") ? 2 : bytes.empty() ? 0 : 1);
    }
    return linhas;
}

TEST(LeitorDeLinhas, finsDeLinhaMisturadosECtrlZ) {
    EXPECT_EQ(ler(""_t), Linhas());
    EXPECT_EQ(ler("a\r\nb\nc\rd"_t), (Linhas{"a", "b", "c", "d"}));
    EXPECT_EQ(ler("\r\n\n\r\r\n"_t), (Linhas{"", "", "", ""}));
    EXPECT_EQ(ler("a\r\nb\x1Ax\r\ny"_t), (Linhas{"a", "b"}));
    EXPECT_EQ(ler("a\r\n\r\n\x1A"_t), (Linhas{"a", ""}));
}

TEST(LeitorDeLinhas, fimDeLinhaNaBeiraDoBloco) {
    for (const VistaTexto fim : {"\r\n", "\r", "\n", "\r\r\n", "\x1A", ""}) {
        for (std::size_t antes = bloco - 3; antes <= bloco + 1; ++antes) {
            Texto bytes;
            while (bytes.size() + 1002 < antes)
                bytes.append(1000, 'x').append("\r\n");
            bytes.append(antes - bytes.size(), 'y').append(fim).append("z\r\n");
            EXPECT_TRUE(ler(bytes) == separar(bytes)) << antes;
        }
    }
}

TEST(LeitorDeLinhas, linhaLongaVemCortada) {
    const Texto resto = "\r\nfim";
    for (const std::size_t tamanho :
         {LeitorDeLinhas::maiorLinha - 1, LeitorDeLinhas::maiorLinha, LeitorDeLinhas::maiorLinha + 1, bloco - 1, bloco,
          bloco + 1, std::size_t{10'000'000}}) {
        const Texto longa(tamanho, '\0');
        const Texto cortada = longa.substr(0, LeitorDeLinhas::maiorLinha);
        for (const std::size_t pedaco : {bloco, std::size_t{50'001}}) {
            EXPECT_TRUE(ler(longa + resto, pedaco) == (Linhas{cortada, "fim"})) << tamanho;
            EXPECT_TRUE(ler("a\n" + longa, pedaco) == (Linhas{"a", cortada})) << tamanho;
            EXPECT_TRUE(ler(longa + "\x1A" + resto, pedaco) == (Linhas{cortada})) << tamanho;
        }
    }
}

TEST(LeitorDeLinhas, quemDesisteNaoEsperaOFimDeUmaLinhaSemFim) {
    const Texto semFim(10 * bloco, 'x');
    int perguntas = 0;
    LeitorDeLinhas leitor(std::make_unique<EntradaEmPedacos>(semFim, bloco), [&] { return ++perguntas == 3; });
    EXPECT_EQ(leitor.proxima(), Texto(LeitorDeLinhas::maiorLinha, 'x'));
    EXPECT_EQ(perguntas, 3);
    EXPECT_EQ(leitor.proxima(), std::nullopt);
}

TEST(LeitorDeLinhas, comoASeparacaoSimplesEmArquivosAoAcaso) {
    std::minstd_rand sorteio(1);
    const auto ate = [&](std::size_t maior) { return std::uniform_int_distribution<std::size_t>(0, maior)(sorteio); };
    for (unsigned vez = 0; vez < 400; ++vez) {
        const VistaTexto alfabeto = "\x1Axxxxxxxxxx\r\n\r\n\t\0"sv.substr(vez % 4 == 0 ? 0 : 1);
        const std::size_t largura = ate(9);
        Texto bytes;
        for (std::size_t linhas = ate(vez % 50 == 0 ? 60'000 : 40); linhas > 0; --linhas) {
            bytes.append(largura, 'r').append(ate(20) == 0 ? "\n" : "\r\n"); // mostly of one length, as records are
            if (ate(5) == 0) bytes.push_back(alfabeto[ate(alfabeto.size() - 1)]);
        }
        ASSERT_TRUE(ler(bytes, 1 + ate(vez % 2 == 0 ? 5 : bloco)) == separar(bytes)) << "vez " << vez;
    }
}

} // namespace
} // namespace quilatador
