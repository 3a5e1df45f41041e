#include "gerarRemessa/Gerador.h"

#include "gerarRemessa/CodigoDeBarras.h"
#include "gerarRemessa/PosicoesZUL702.h"
#include "gerarRemessa/Trocas.h"
#include "layout/ArquivoRemessaBD.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

namespace quilatador::gerador {

namespace {

const std::filesystem::path fontes = QUILATADOR_FONTES;
const std::filesystem::path leiaute = fontes / "data/Arquivo_ZUL702.xml";

Texto conteudo(const std::filesystem::path& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    return {std::istreambuf_iterator<char>(arquivo), {}};
}

Texto gerado(const Opcoes& opcoes) {
    std::ostringstream saida;
    gerar(opcoes, saida);
    return std::move(saida).str();
}

/// The lines without their ends; one of another length or with another end shows up as such.
std::vector<Texto> linhas(const Texto& arquivo) {
    std::vector<Texto> resultado;
    for (std::size_t i = 0; i < arquivo.size(); i += 242) {
        EXPECT_EQ(arquivo.find("\r\n", i), i + 240);
        resultado.push_back(arquivo.substr(i, 240));
    }
    return resultado;
}

Texto letras(const std::vector<Texto>& registros) {
    Texto resultado;
    for (const Texto& registro : registros)
        resultado += registro.front();
    return resultado;
}

VistaTexto lido(const Texto& registro, const Campo& onde) {
    return trecho(registro, onde.inicio, onde.tamanho);
}

/// "B.CNPJ 12+14"
Texto descricao(VistaTexto segmento, VistaTexto nome, std::size_t inicio, std::size_t tamanho) {
    return junta(segmento, ".", nome, " ", std::to_string(inicio), "+", std::to_string(tamanho));
}

} // namespace

TEST(PosicoesZUL702, saoAsDoLeiauteXml) {
    pugi::xml_document documento;
    ASSERT_TRUE(documento.load_file(leiaute.c_str()));
    std::multiset<Texto> noXml;
    std::multiset<Texto> naTabela;
    for (const pugi::xml_node registro : documento.child("ArquivoRemessa")) {
        const std::string segmento = registro.attribute("Nome").value();
        std::size_t inicio = 1;
        for (const pugi::xml_node campoXml : registro) {
            const std::string nome = campoXml.attribute("Nome").value();
            const std::size_t tamanho = campoXml.attribute("Tamanho").as_uint();
            if (nome != "Brancos") noXml.insert(descricao(segmento, nome, inicio, tamanho));
            inicio += tamanho;
        }
        EXPECT_EQ(inicio, 241u) << segmento;
        for (const Campo& comum : camposComuns)
            naTabela.insert(descricao(segmento, comum.nome, comum.inicio, comum.tamanho));
    }
    for (const Campo& proprio : camposProprios)
        naTabela.insert(descricao({&proprio.segmento, 1}, proprio.nome, proprio.inicio, proprio.tamanho));
    EXPECT_EQ(naTabela, noXml);
}

TEST(CodigoDeBarras, digitoGeralPelaMoeda) {
    const std::pair<int, VistaTexto> casos[] = {{6, "81690000001234543212099021022048800000000100"},
                                                {7, "81770000001234543212099021022048800000000100"},
                                                {8, "81890000001234543212099021022048800000000100"},
                                                {9, "81970000001234543212099021022048800000000100"}};
    for (const auto& [moeda, esperado] : casos) {
        const CodigoDeBarras barras = fazerCodigoDeBarras({'1', moeda, 12345, "4321", "2099021022048800000000100"});
        EXPECT_EQ(VistaTexto(barras.data(), barras.size()), esperado);
    }
}

/// Slip by slip: an expression for the whole of a long file would need more stack than some systems have.
bool ordemCerta(const Texto& letras) {
    const std::regex convenente("ABCDEFG+H?I?J?K+L+");
    const std::regex guia("STUVWX{0,3}Y{1,4}");
    const std::regex ultimaGuia("STUVWX{0,3}Y{1,4}Z");
    std::size_t inicio = letras.find('S');
    bool certa = std::regex_match(letras.substr(0, inicio), convenente);
    while (certa && inicio != Texto::npos) {
        const std::size_t fim = letras.find('S', inicio + 1);
        certa = std::regex_match(letras.substr(inicio, fim - inicio), fim == Texto::npos ? ultimaGuia : guia);
        inicio = fim;
    }
    return certa;
}

TEST(Gerador, numeroExatoDeRegistrosNaOrdemCerta) {
    std::vector<std::uint32_t> tamanhos{100, 999, 1000, 12345};
    for (std::uint32_t n = menorRemessa; n <= 60; ++n)
        tamanhos.push_back(n);
    for (const std::uint32_t n : tamanhos) {
        const std::vector<Texto> registros = linhas(gerado({.semente = n, .registros = n}));
        EXPECT_EQ(registros.size(), n);
        EXPECT_TRUE(ordemCerta(letras(registros))) << letras(registros);
        EXPECT_EQ(lido(registros.back(), campo('Z', "TotalRegistros")), comZeros(n, 6));
        for (std::size_t i = 0; i < registros.size(); ++i)
            EXPECT_EQ(lido(registros[i], campo("Sequencial")), comZeros(static_cast<long long>(i + 1), 6));
    }
}

TEST(Gerador, numeroExatoDeGuias) {
    for (const std::uint32_t n : {1u, 2u, 77u}) {
        const Texto segmentos = letras(linhas(gerado({.guias = n})));
        EXPECT_EQ(std::ranges::count(segmentos, 'S'), static_cast<std::ptrdiff_t>(n));
    }
}

TEST(Gerador, todosOsCamposDaRemessaSaoValidosNoLeiaute) {
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["leiaute.xml"] = conteudo(leiaute);
    const auto arquivo = ArquivoRemessaBD::obterArquivoRemessa("leiaute.xml", mundo.arquivos, mundo.painel);
    ASSERT_TRUE(arquivo);
    mundo.arquivos.conteudo["remessa.rem"] = gerado({.guias = 3});
    arquivo->abrirArquivoEntrada("remessa.rem");
    Texto segmentos;
    while (!arquivo->lerRegistro(true).nome().empty()) // a field that cannot be read throws
        segmentos += arquivo->tiposRegistros()[arquivo->tipoEmMaos()]->nome();
    EXPECT_EQ(segmentos, letras(linhas(mundo.arquivos.conteudo["remessa.rem"])));
}

TEST(Gerador, digitosDasPartesDoCodigoDeBarras) {
    std::set<char> moedas;
    for (std::uint64_t semente = 1; semente <= 12; ++semente) {
        const std::vector<Texto> registros = linhas(gerado({.semente = semente}));
        const char moeda = registros[2][campo('C', "Moeda").inicio - 1];
        moedas.insert(moeda);
        for (const Texto& registro : registros) {
            if (registro.front() != 'Y') continue;
            Texto barra;
            for (std::size_t inicio = campo('Y', "Parte1").inicio; inicio <= campo('Y', "Parte4").inicio;
                 inicio += 12) {
                const VistaTexto parte = trecho(registro, inicio, 11);
                EXPECT_EQ(registro[inicio + 10], digitoVerificador(parte, moeda - '0'));
                barra += parte;
            }
            EXPECT_EQ(barra.substr(2, 1), Texto(1, moeda));
            EXPECT_EQ(barra.substr(4, 11), lido(registro, campo('Y', "ValorPag")).substr(4));
            EXPECT_EQ(barra.substr(19, 8), lido(registro, campo('Y', "DataVenc")));
        }
    }
    EXPECT_EQ(moedas, (std::set<char>{'6', '7', '8', '9'}));
}

TEST(Gerador, falhasTrocamSoOsCamposDaTabela) {
    const std::vector<Texto> boa = linhas(gerado({.guias = 3}));
    const std::vector<Texto> comFalhas = linhas(gerado({.guias = 3, .falhas = true}));
    ASSERT_EQ(letras(comFalhas), letras(boa));
    const std::size_t ultimaGuia = letras(boa).rfind('S');
    std::vector<Texto> esperada = boa;
    for (const Troca& troca : trocas) {
        std::size_t qual = troca.campo.segmento < 'S' ? 0 : ultimaGuia;
        for (std::uint32_t vistos = 0; (vistos += boa[qual].front() == troca.campo.segmento) < troca.ordem;)
            ++qual;
        Texto novo(troca.conteudo);
        novo.resize(troca.campo.tamanho, ' ');
        EXPECT_NE(lido(boa[qual], troca.campo), novo) << troca.campo.segmento << '.' << troca.campo.nome;
        esperada[qual].replace(troca.campo.inicio - 1, troca.campo.tamanho, novo);
    }
    EXPECT_EQ(comFalhas, esperada);
}

TEST(Gerador, retornoRepeteARemessaComOcorrencias) {
    std::vector<Texto> remessa = linhas(gerado({.guias = 9}));
    const std::vector<Texto> retorno = linhas(gerado({.tipo = Tipo::ZUL708, .guias = 9}));
    std::set<VistaTexto> codigos;
    ASSERT_EQ(retorno.size(), remessa.size());
    for (std::size_t i = 0; i < retorno.size(); ++i) {
        const VistaTexto ocorrencias = lido(retorno[i], campo("Ocorrencias"));
        EXPECT_EQ(ocorrencias != "000000", (i + 1) % 10 == 0) << ocorrencias;
        codigos.insert(ocorrencias);
        remessa[i].replace(228, 6, ocorrencias);
    }
    remessa[0].replace(11, 6, "ZUL708");
    EXPECT_EQ(retorno, remessa);
    EXPECT_GE(codigos.size(), 8u);
}

TEST(Gerador, liquidacaoSomaOsPagamentos) {
    for (const std::uint32_t pagamentos : {0u, 1u, 500u}) {
        const std::vector<Texto> registros = linhas(gerado({.tipo = Tipo::TAV001, .registros = pagamentos}));
        ASSERT_EQ(letras(registros), "A" + Texto(pagamentos, 'G') + "Z");
        EXPECT_EQ(trecho(registros[0], 2, 1), "2");
        EXPECT_EQ(trecho(registros[0], 80, 2), "03");
        std::set<VistaTexto> canais;
        long long total = 0;
        for (std::size_t i = 1; i <= pagamentos; ++i) {
            const VistaTexto registro = registros[i];
            EXPECT_EQ(trecho(registro, 38 + 4, 11), trecho(registro, 83, 11)) << "amount in the barcode";
            EXPECT_EQ(trecho(registro, 101, 8), comZeros(static_cast<long long>(i), 8));
            canais.insert(trecho(registro, 117, 1));
            total += std::stoll(Texto(trecho(registro, 82, 12)));
        }
        EXPECT_EQ(trecho(registros.back(), 2, 6), comZeros(pagamentos + 2LL, 6));
        EXPECT_EQ(trecho(registros.back(), 8, 17), comZeros(total, 17));
        if (pagamentos > 100) {
            EXPECT_TRUE(canais.contains("a") && canais.contains("A"));
        }
    }
}

/// The samples were written once and are kept: the same options must give them on every platform.
TEST(Gerador, osExemplosSaoDele) {
    const std::pair<const char*, Opcoes> casos[] = {
        {"remessa-valida/remessa.rem", {.guias = 5}},
        {"remessa-com-erros/remessa.rem", {.guias = 3, .falhas = true}},
        {"retorno-impressao/retorno.ret", {.tipo = Tipo::ZUL708, .guias = 5}},
        {"retorno-liquidacao/retorno.ret", {.tipo = Tipo::TAV001, .registros = 12}},
    };
    for (const auto& [nome, opcoes] : casos)
        EXPECT_TRUE(gerado(opcoes) == conteudo(fontes / "samples" / nome)) << nome;
    EXPECT_NE(gerado({.semente = 1}), gerado({.semente = 2}));
}

TEST(Gerador, opcoesQueNaoCombinamFalhamAntesDeGravar) {
    const std::pair<Opcoes, VistaTexto> casos[] = {
        {{.guias = 0}, "O número de guias vai de 1 a 83331!"_t},
        {{.guias = 83'332}, "O número de guias vai de 1 a 83331!"_t},
        {{.registros = 15}, "O número de registros vai de 16 a 999999!"_t},
        {{.registros = 1'000'000}, "O número de registros vai de 16 a 999999!"_t},
        {{.guias = 1, .registros = 20}, "Informe o número de guias ou o de registros, não ambos!"_t},
        {{.tipo = Tipo::TAV001, .guias = 1}, "Um TAV001 não tem guias nem falhas!"_t},
        {{.tipo = Tipo::TAV001, .falhas = true}, "Um TAV001 não tem guias nem falhas!"_t},
        {{.tipo = Tipo::TAV001, .registros = 100'000'000}, "O número de pagamentos vai de 0 a 99999999!"_t},
    };
    for (const auto& [opcoes, esperada] : casos) {
        std::ostringstream saida;
        try {
            gerar(opcoes, saida);
            ADD_FAILURE() << utf8DeTexto(esperada);
        } catch (const Falha& falha) {
            EXPECT_EQ(falha.descricao(), esperada);
        }
        EXPECT_EQ(saida.str(), "");
    }
}

TEST(Gerador, discoCheioNaoPassaEmSilencio) {
    std::ostringstream saida;
    saida.setstate(std::ios::badbit);
    EXPECT_THROW(gerar({}, saida), Falha);
}

} // namespace quilatador::gerador
