#include "layout/ArquivoRemessaBD.h"

#include "common/Numero.h"

#include <cmath>
#include <limits>
#include <new>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

namespace quilatador {

namespace {

/// No description of fixed-width records needs as much: a larger or deeper file must be something else.
constexpr std::uint64_t maiorDescricao = 1024 * 1024; // in bytes
constexpr int maiorProfundidade = 16;
constexpr double maiorInteiro = std::numeric_limits<std::int16_t>::max();

Falha falhaDoLeiaute(VistaTexto descricao) {
    return {numeroDeFalha::geral, "ArquivoRemessaBD"_t, junta("Leiaute inválido: "_t, descricao)};
}

std::vector<char> lerTudo(const std::filesystem::path& caminho, Arquivos& arquivos) {
    if (arquivos.tamanho(caminho) > maiorDescricao) throw falhaDoLeiaute("arquivo grande demais"_t);
    const auto arquivo = arquivos.abrirEntrada(caminho);
    std::vector<char> conteudo;
    constexpr std::size_t parte = 64 * 1024;
    for (std::size_t lidos = parte; lidos > 0;) {
        const std::size_t tamanho = conteudo.size();
        if (tamanho > maiorDescricao) throw falhaDoLeiaute("arquivo grande demais"_t);
        conteudo.resize(tamanho + parte);
        lidos = arquivo->ler(std::span(conteudo).subspan(tamanho));
        conteudo.resize(tamanho + lidos);
    }
    return conteudo;
}

/// An XML element and, for error texts, a description of where it stands.
struct Elemento {
    pugi::xml_node no;
    Texto onde;

    [[nodiscard]] Texto texto(const char* atributo) const {
        const pugi::xml_attribute valor = no.attribute(atributo);
        if (!valor) throw falhaDoLeiaute(junta(onde, " sem o atributo \""_t, textoDosBytes(atributo), "\""_t));
        return textoDeUtf8(valor.value());
    }

    /// The number at the start of an attribute, where halves are rounded to the even neighbour. With `inteiro`, the
    /// whole attribute must be a number.
    [[nodiscard]] double numero(const char* atributo, double menor, double maior, bool inteiro = false) const {
        const Texto lido = texto(atributo);
        const double numero = std::nearbyint(lerNumero(lido));
        if (numero < menor || numero > maior || (inteiro && !ehNumerico(lido)))
            throw falhaDoLeiaute(
                junta(onde, ", atributo \""_t, textoDosBytes(atributo), "\": valor inválido \""_t, lido, "\""_t));
        return numero;
    }
};

Elemento exigirElemento(pugi::xml_node no, VistaTexto onde) {
    if (no.type() != pugi::node_element) throw falhaDoLeiaute(junta(onde, ": há um nó que não é elemento"_t));
    return {no, junta(onde, " \""_t, textoDeUtf8(no.attribute("Nome").value()), "\""_t)};
}

CampoRemessa lerCampo(const Elemento& elemento) {
    constexpr double maiorOcteto = std::numeric_limits<std::uint8_t>::max();
    CampoRemessa campo;
    campo.nome(elemento.texto("Nome"));
    campo.natureza(elemento.texto("Tipo"));
    if (elemento.no.attribute("Alinhamento"))
        campo.alinhamento(static_cast<std::uint8_t>(elemento.numero("Alinhamento", 0, maiorOcteto, true)));
    campo.Tamanho(static_cast<std::int16_t>(elemento.numero("Tamanho", 0, maiorInteiro)));
    campo.formato(elemento.texto("Formato"));
    campo.numeroDecimais(static_cast<std::uint8_t>(elemento.numero("Decimais", 0, maiorOcteto)));
    const pugi::xml_attribute valor = elemento.no.attribute("Valor");
    campo.Valor(valor ? Valor(textoDeUtf8(valor.value())) : Valor(Valor::Nulo()));
    return campo;
}

/// Checks what is only known once all fields of the record have been read.
void conferirTipo(const RegistroRemessa& registro, VistaTexto onde) {
    if (!registro.indiceDoCampo(registro.identificador()))
        throw falhaDoLeiaute(
            junta(onde, ", atributo \"Identificador\": não há o campo \""_t, registro.identificador(), "\""_t));
}

std::shared_ptr<RegistroRemessa> lerTipo(const Elemento& elemento) {
    auto registro = std::make_shared<RegistroRemessa>();
    registro->nome(elemento.texto("Nome"));
    registro->Tamanho(static_cast<std::int16_t>(elemento.numero("Tamanho", 0, maiorInteiro, true)));
    registro->identificador(elemento.texto("Identificador"));
    for (const pugi::xml_node no : elemento.no.children()) {
        const Elemento campo = exigirElemento(no, junta(elemento.onde, ", Campo"_t));
        try {
            registro->add(lerCampo(campo));
        } catch (const Falha& falha) {
            if (falha.fonte() == "ArquivoRemessaBD"_t) throw;
            throw falhaDoLeiaute(junta(campo.onde, ": "_t, falha.descricao()));
        }
    }
    conferirTipo(*registro, elemento.onde);
    return registro;
}

/// Refuses documents that could make an XML parser act or exhaust it. This parser is not affected, but a description is
/// only data and needs none of that.
void conferirDocumento(pugi::xml_document& documento) {
    struct Inspetor : pugi::xml_tree_walker {
        bool for_each(pugi::xml_node& no) override {
            if (depth() > maiorProfundidade) throw falhaDoLeiaute("elementos em níveis demais"_t);
            if (depth() > 0) return true;
            if (no.type() == pugi::node_doctype) throw falhaDoLeiaute("DOCTYPE não é permitido"_t);
            if (no.type() == pugi::node_element && ++raizes > 1) throw falhaDoLeiaute("há mais de uma raiz"_t);
            return true;
        }
        int raizes = 0;
    } inspetor;
    documento.traverse(inspetor);
}

/// The root must be the second node of the document, after the XML declaration.
pugi::xml_node obterRaiz(const pugi::xml_document& documento, Painel& painel) {
    const pugi::xml_node raiz = documento.first_child().next_sibling();
    if (raiz.name() == std::string_view("ArquivoRemessa")) return raiz;
    constexpr VistaTexto motivo = "Arquivo XML não corresponde a um arquivo de remessa!"_t;
    painel.mensagem({.texto = Texto(motivo), .titulo = Texto(tituloDoPrograma)});
    throw FalhaMostrada(numeroDeFalha::geral, "ArquivoRemessaBD"_t, motivo);
}

} // namespace

std::unique_ptr<ArquivoRemessa> ArquivoRemessaBD::obterArquivoRemessa(const std::filesystem::path& caminho,
                                                                      Arquivos& arquivos, Painel& painel,
                                                                      const Relogio& relogio) {
    if (!arquivos.existe(caminho)) {
        painel.mensagem({.texto = Texto("Arquivo nao encontrado!"_t), .titulo = Texto(tituloDoPrograma)});
        return nullptr;
    }
    const std::vector<char> conteudo = lerTudo(caminho, arquivos);
    pugi::xml_document documento;
    constexpr unsigned opcoes =
        pugi::parse_default | pugi::parse_declaration | pugi::parse_comments | pugi::parse_pi | pugi::parse_doctype;
    const auto lido = documento.load_buffer(conteudo.data(), conteudo.size(), opcoes);
    if (lido.status == pugi::status_out_of_memory) throw std::bad_alloc();
    if (!lido) throw falhaDoLeiaute(junta("não é XML (byte "_t, textoDe(lido.offset), ")"_t));
    auto arquivo = std::make_unique<ArquivoRemessa>(arquivos, relogio);
    const pugi::xml_node raiz = obterRaiz(documento, painel);
    conferirDocumento(documento);
    for (const pugi::xml_node no : raiz.children())
        arquivo->addTipoRegistro(lerTipo(exigirElemento(no, "Registro"_t)));
    return arquivo;
}

std::unique_ptr<ArquivoRemessa> ArquivoRemessaBD::carregar(const Ambiente& ambiente) {
    const auto avisar = [&](VistaTexto texto) {
        ambiente.painel.mensagem(
            {.texto = Texto(texto), .titulo = Texto(tituloDeErro), .icone = Mensagem::Icone::Exclamacao});
        return nullptr;
    };
    try {
        return obterArquivoRemessa(ambiente.leiaute(), ambiente.arquivos, ambiente.painel, ambiente.relogio);
    } catch (const FalhaMostrada&) {
        return nullptr;
    } catch (const Falha& falha) {
        return avisar(falha.descricao());
    } catch (const std::bad_alloc&) {
        return avisar(memoriaInsuficiente);
    }
}

} // namespace quilatador
