#include "validator/completa/Deslize.h"

#include "layout/ArquivoRemessaBD.h"
#include "support/Remessas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace quilatador {
namespace {

using Causa = Deslize::Causa;

/// The layout, and of each record type the first line of the valid remittance.
struct Bancada {
    Bancada() {
        const Texto arquivo = testes::lerTexto(QUILATADOR_REMESSA_VALIDA);
        std::set<char> letras;
        for (std::size_t i = 0; i < arquivo.size(); i += testes::bytesDaLinha)
            if (letras.insert(arquivo[i]).second) linhas.push_back(arquivo.substr(i, testes::bytesDaLinha - 2));
    }
    std::optional<Deslize> achar(const Texto& linha, char letra) const {
        return acharDeslize(*leiaute->criarRegistro(VistaTexto(&letra, 1)), linha);
    }
    const Texto& linha(char letra) const {
        return *std::ranges::find(linhas, letra, [](const Texto& uma) { return uma[0]; });
    }
    std::size_t campoEm(char letra, std::size_t posicao) const {
        const auto registro = leiaute->criarRegistro(VistaTexto(&letra, 1));
        return static_cast<std::size_t>(std::ranges::count_if(
            registro->campos(), [&](const auto& campo) { return campo->Fim() < static_cast<int>(posicao); }));
    }

    testes::MundoComRemessa mundo;
    std::unique_ptr<ArquivoRemessa> leiaute = ArquivoRemessaBD::carregar(mundo.ambiente);
    std::vector<Texto> linhas;
};

TEST(Deslize, emCadaPosicaoDeCadaTipo) {
    struct Defeito {
        Causa causa;
        VistaTexto onde; ///< what is replaced wherever it stands; "?" is any byte
        VistaTexto novo;
        double campos; ///< so many are told on average at most
    };
    constexpr auto bytes = [](std::string_view b) { return textoDosBytes(b); };
    const Defeito defeitos[] = {
        {Causa::ParUtf8, "?"_t, bytes("\xC3\xA3"), 1}, {Causa::ParUtf8, "?"_t, bytes("\xE2\x80\x93"), 1},
        {Causa::Bom, ""_t, bytes("\xEF\xBB\xBF"), 1},  {Causa::EspacoRigido, "?"_t, bytes("\xC2\xA0"), 1},
        {Causa::EspacoRigido, ""_t, bytes("\xA0"), 1}, {Causa::Tabulacao, ""_t, "\t"_t, 1},
        {Causa::Tabulacao, "    "_t, "\t"_t, 1.1},     {Causa::QuebraDeLinha, ""_t, "\n"_t, 1},
        {Causa::QuebraDeLinha, ""_t, "\r"_t, 1},       {Causa::QuebraDeLinha, ""_t, "\r\n"_t, 1},
        {Causa::BrancoDobrado, " "_t, "  "_t, 2.7},    {Causa::BrancoPerdido, " "_t, ""_t, 2.7},
        {Causa::BrancoPerdido, "   "_t, ""_t, 2.8},
    };
    const Bancada bancada;
    for (const Defeito& defeito : defeitos) {
        double todos = 0, certos = 0, campos = 0;
        for (const Texto& linha : bancada.linhas)
            for (std::size_t i = 0; i < linha.size(); ++i) {
                const bool qualquer = defeito.onde == "?"_t;
                if (!qualquer && !linha.substr(i).starts_with(defeito.onde)) continue;
                const auto achado = bancada.achar(Texto(linha).replace(i, defeito.onde.size(), defeito.novo), linha[0]);
                ++todos;
                if (!achado || achado->causa != defeito.causa) continue;
                const std::size_t primeiro = bancada.campoEm(linha[0], static_cast<std::size_t>(achado->posicao));
                const std::size_t ultimo = bancada.campoEm(linha[0], static_cast<std::size_t>(achado->ultima));
                const std::size_t certo = bancada.campoEm(linha[0], i + 1);
                certos += primeiro <= certo && certo <= ultimo;
                campos += static_cast<double>(ultimo - primeiro + 1);
            }
        const auto qual = &defeito - defeitos;
        EXPECT_GE(certos / todos, 0.99) << qual;
        EXPECT_LE(campos / todos, defeito.campos) << qual;
    }
}

TEST(Deslize, oQueSeDiz) {
    struct Caso {
        char letra;
        std::size_t posicao; ///< 1-based, where `novo` stands in place of so many bytes
        std::size_t bytes;
        VistaTexto novo;
        bool noTamanho; ///< filled up or cut to the right length
        VistaTexto esperado;
    };
    const auto utf8 = [](std::string_view texto) { return textoDosBytes(texto); };
    const Texto tabulacoes(65'000, '\t');
    const Caso casos[] = {
        {'T', 87, 1, utf8("ã"), false,
         "a partir da posição 87 (Endereco) tudo está 1 à direita: 'ã' em UTF-8 (C3 A3)"_t},
        {'T', 29, 5, utf8("ÍRÊNÉ"), false,
         "a partir da posição 29 (Nome) tudo está 1 à direita: 'Í' em UTF-8 (C3 8D), e mais 2 adiante"_t},
        {'T', 29, 5, utf8("IR\xC3\x8ANE"), true,
         "a partir da posição 31 (Nome) tudo está 1 à direita: 'Ê' em UTF-8 (C3 8A)"_t},
        {'T', 60, 1, ""_t, true,
         "entre as posições 30 e 78 (Nome) tudo passa a estar 1 à esquerda: 1 branco a menos"_t},
        {'A', 241, 0, "\r"_t, false, "na posição 241, depois do último campo: quebra de linha (0D)"_t},
        {'A', 100, 0, "x"_t, false, "a partir da posição 100 (Brancos) tudo está 1 à direita: 1 caractere a mais"_t},
        {'A', 241, 0, "          "_t, false, "na posição 241, depois do último campo: 10 brancos a mais"_t},
        {'A', 229, 0, "          "_t, false,
         "entre as posições 57 (Brancos) e 234 (Ocorrencias) tudo passa a estar 10 à direita: 10 brancos a mais"_t},
        {'A', 235, 6, ""_t, false,
         "entre as posições 235 e 240 (Sequencial) tudo passa a estar 6 à esquerda: 6 caracteres a menos"_t},
        {'T', 161, 8, "1399X291"_t, false, ""_t},
        {'T', 1, 240, "T"_t, true, ""_t},
        {'T', 1, 240, ""_t, false, ""_t},
        {'T', 241, 0, tabulacoes, false, ""_t},
    };
    const Bancada bancada;
    for (const Caso& caso : casos) {
        Texto linha = Texto(bancada.linha(caso.letra)).replace(caso.posicao - 1, caso.bytes, caso.novo);
        if (caso.noTamanho) linha.resize(240, ' ');
        const auto achado = bancada.achar(linha, caso.letra);
        EXPECT_EQ(achado ? textoDoDeslize(*achado) : Texto(), caso.esperado) << caso.posicao;
    }
    for (const Texto& linha : bancada.linhas)
        EXPECT_FALSE(bancada.achar(linha, linha[0])) << linha;
}

} // namespace
} // namespace quilatador
