#include "layout/ArquivoRemessaBD.h"

#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

constexpr VistaTexto declaracao = R"(<?xml version="1.0" encoding="UTF-8"?>)"_t;

/// A description of one record type of 9 characters; a case changes one piece of it.
constexpr VistaTexto boa = R"(<?xml version="1.0" encoding="UTF-8"?>
<ArquivoRemessa>
  <Registro Nome="A" Tamanho="9" Identificador="Tipo">
    <Campo Nome="Tipo" Tipo="S" Tamanho="1" Formato="" Decimais="0" Valor="A"/>
    <Campo Nome="Data" Tipo="D" Alinhamento="1" Tamanho="8" Formato="AAAAMMDD" Decimais="2"/>
  </Registro>
</ArquivoRemessa>
)"_t;

Texto trocar(VistaTexto descricao, VistaTexto de, VistaTexto para) {
    return Texto(descricao).replace(descricao.find(de), de.size(), para);
}

/// So many elements, one in the other.
Texto niveis(int quantos) {
    Texto todos;
    for (int i = 0; i < quantos; ++i)
        todos += "<a>"_t;
    for (int i = 0; i < quantos; ++i)
        todos += "</a>"_t;
    return todos;
}

/// A world whose only file is a layout description.
struct Mundo : testes::MundoFalso {
    explicit Mundo(VistaTexto descricao) { arquivos.conteudo["leiaute.xml"] = descricao; }

    std::unique_ptr<ArquivoRemessa> carregar() {
        return ArquivoRemessaBD::obterArquivoRemessa("leiaute.xml", arquivos, painel, relogio);
    }
    Texto falha() {
        return testes::textoDaFalha([&] { return carregar(); });
    }
};

TEST(ArquivoRemessaBD, registrosECamposNaOrdem) {
    Mundo mundo(junta(declaracao, R"(
        <ArquivoRemessa Versao="x">
          <Segmento Nome="A" Tamanho="240" Identificador="Tipo">
            <x Nome="Tipo" Tipo="S" Tamanho="1" Formato="" Decimais="0" Valor="A"/>
            <y Nome="Valor" Tipo="N" Alinhamento="1" Tamanho=" 15 posições" Formato="F" Decimais="2 casas"/>
            <z Nome="Largo" Tipo="R" Alinhamento="255" Tamanho="1.5" Formato="&quot;" Decimais="" Valor=""><w/></z>
            <z Nome="Nada" Tipo="S" Tamanho="0" Formato="" Decimais="0"/>
            <z Nome="Fora" Tipo="S" Tamanho="300" Formato="" Decimais="0"/>
          </Segmento>
          <Registro Nome="B" Tamanho="32767" Identificador="LARGO">
            <Campo Nome="Largo" Tipo="X" Tamanho="32767" Formato="" Decimais="0"/>
          </Registro>
        </ArquivoRemessa>)"_t));
    const auto leiaute = mundo.carregar();
    ASSERT_TRUE(leiaute);
    Texto descricao;
    for (const auto& tipo : leiaute->tiposRegistros()) {
        descricao += junta(tipo->nome(), " "_t, textoDe(tipo->Tamanho()), " "_t, tipo->identificador(), "\n"_t);
        for (const auto& c : tipo->campos())
            descricao +=
                junta("  "_t, c->nome(), " "_t, c->natureza(), textoDe(c->alinhamento()), " "_t, textoDe(c->inicio()),
                      "-"_t, textoDe(c->Fim()), " "_t, c->formato(), " "_t, textoDe(c->numeroDecimais()), " "_t,
                      c->Valor().nulo() ? Texto("nulo"_t) : junta("["_t, c->Valor().texto(), "]"_t), "\n"_t);
    }
    EXPECT_EQ(descricao, "A 240 Tipo\n"
                         "  Tipo S0 1-1  0 [A]\n"
                         "  Valor N1 2-16 F 2 nulo\n"
                         "  Largo R255 17-18 \" 0 []\n"
                         "  Nada S0 19-18  0 nulo\n"
                         "  Fora S0 19-318  0 nulo\n"
                         "B 32767 LARGO\n"
                         "  Largo X0 1-32767  0 nulo\n"_t);
    EXPECT_TRUE(mundo.arquivos.tudoFechado());
    EXPECT_TRUE(mundo.painel.chamadas.empty());
}

TEST(ArquivoRemessaBD, nomesEmQualquerCodificacao) {
    for (const auto& [codificacao, nome] :
         {std::pair("UTF-8"_t, textoDosBytes("A\xC3\xA7\xC3\xA3o")), std::pair("windows-1252"_t, "Ação"_t)}) {
        Mundo mundo(trocar(trocar(boa, "UTF-8"_t, codificacao), "\"Data\""_t, junta("\""_t, nome, "\""_t)));
        EXPECT_EQ(mundo.carregar()->tiposRegistros()[0]->campos()[1]->nome(), "Ação"_t);
    }
}

TEST(ArquivoRemessaBD, outraRaizDaMensagemEFalha) {
    const Texto raiz = junta(boa.substr(declaracao.size()));
    for (const Texto& descricao :
         {raiz, junta(declaracao, "<Outra/>"_t), junta(declaracao, "<!-- antes -->"_t, raiz)}) {
        Mundo mundo(descricao);
        EXPECT_EQ(mundo.falha(), "1 ArquivoRemessaBD: Arquivo XML não corresponde a um arquivo de remessa!"_t);
        EXPECT_EQ(mundo.painel.chamadas.size(), 1u);
    }
}

TEST(ArquivoRemessaBD, falhaDizOndeADescricaoNaoServe) {
    const Texto grande = junta(declaracao, Texto(1024 * 1024, ' '));
    const std::tuple<VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {R"( Tamanho="9")"_t, {}, R"(Registro "A" sem o atributo "Tamanho")"_t},
        {R"("9")"_t, R"("9x")"_t, R"(Registro "A", atributo "Tamanho": valor inválido "9x")"_t},
        {R"("9")"_t, R"("-1")"_t, R"(Registro "A", atributo "Tamanho": valor inválido "-1")"_t},
        {R"("9")"_t, R"("32768")"_t, R"(Registro "A", atributo "Tamanho": valor inválido "32768")"_t},
        {R"( Identificador="Tipo")"_t, {}, R"(Registro "A" sem o atributo "Identificador")"_t},
        {R"("Tipo">)"_t, R"("Tipos">)"_t, R"(Registro "A", atributo "Identificador": não há o campo "Tipos")"_t},
        {R"( Nome="Data")"_t, {}, R"(Registro "A", Campo "" sem o atributo "Nome")"_t},
        {R"( Formato="AAAAMMDD")"_t, {}, R"(Registro "A", Campo "Data" sem o atributo "Formato")"_t},
        {R"("2")"_t, R"("-1")"_t, R"(Registro "A", Campo "Data", atributo "Decimais": valor inválido "-1")"_t},
        {R"("2")"_t, R"("256")"_t, R"(Registro "A", Campo "Data", atributo "Decimais": valor inválido "256")"_t},
        {R"("8")"_t, R"("-1")"_t, R"(Registro "A", Campo "Data", atributo "Tamanho": valor inválido "-1")"_t},
        {R"("8")"_t, R"("32767")"_t, R"(Registro "A", Campo "Data": Estouro)"_t},
        {R"(to="1")"_t, R"(to="D")"_t, R"(Registro "A", Campo "Data", atributo "Alinhamento": valor inválido "D")"_t},
        {R"("Data")"_t, R"("TIPO")"_t, R"(Registro "A", Campo "TIPO": Campo em duplicidade: TIPO)"_t},
        {"<Campo"_t, "<!-- c --><Campo"_t, R"(Registro "A", Campo: há um nó que não é elemento)"_t},
        {"<Registro"_t, "<!-- c --><Registro"_t, "Registro: há um nó que não é elemento"_t},
        {"</Registro>"_t, {}, "não é XML (byte 290)"_t},
        {boa, grande, "arquivo grande demais"_t},
        {"</ArquivoRemessa>"_t, "</ArquivoRemessa><ArquivoRemessa/>"_t, "há mais de uma raiz"_t},
        {declaracao, R"(<!DOCTYPE a [<!ENTITY e SYSTEM "file:///etc/passwd">]>)"_t, "DOCTYPE não é permitido"_t},
    };
    for (const auto& [de, para, esperada] : casos)
        EXPECT_EQ(Mundo(trocar(boa, de, para)).falha(), junta("1 ArquivoRemessaBD: Leiaute inválido: "_t, esperada));
    constexpr VistaTexto outroA =
        R"(<R Nome="a" Tamanho="1" Identificador="c"><c Nome="c" Tipo="S" Tamanho="1" Formato="" Decimais="0"/></R>)"_t;
    EXPECT_EQ(Mundo(trocar(boa, "</Arq"_t, junta(outroA, "</Arq"_t))).falha(),
              "457 ArquivoRemessa: Registro em duplicidade: a"_t);
    constexpr VistaTexto demais = "1 ArquivoRemessaBD: Leiaute inválido: elementos em níveis demais"_t;
    for (const auto& [quantos, esperada] : {std::pair(14, ""_t), {15, demais}, {100'000, demais}})
        EXPECT_EQ(Mundo(trocar(boa, "/>\n  </R"_t, junta(">"_t, niveis(quantos), "</Campo></R"_t))).falha(), esperada);
}

} // namespace
} // namespace quilatador
