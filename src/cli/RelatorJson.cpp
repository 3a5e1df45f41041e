#include "cli/RelatorJson.h"

#include <nlohmann/json.hpp>

namespace quilatador {

namespace {

using Json = nlohmann::ordered_json;

const char* nomeDo(Desfecho desfecho) {
    switch (desfecho) {
    case Desfecho::Concluida:
        return "concluida";
    case Desfecho::Cancelada:
        return "cancelada";
    case Desfecho::Falhou:
        return "falhou";
    case Desfecho::NaoRodou:
        return "naoRodou";
    }
    return "";
}

Json objetoDo(const Achado& achado) {
    Json objeto{{"id", utf8DeTexto(achado.id)},
                {"gravidade", utf8DeTexto(nomeDa(achado.gravidade))},
                {"linha", achado.linha},
                {"segmento", achado.segmento == 0 ? Json() : Json(utf8DeTexto(VistaTexto(&achado.segmento, 1)))},
                {"mensagem", utf8DeTexto(achado.mensagem)}};
    if (achado.campo) {
        objeto["campo"] = {{"nome", utf8DeTexto(achado.campo->nome)},
                           {"inicio", achado.campo->inicio},
                           {"fim", achado.campo->fim},
                           {"encontrado", utf8DeTexto(achado.campo->encontrado)}};
        if (achado.campo->esperado) objeto["campo"]["esperado"] = utf8DeTexto(*achado.campo->esperado);
    }
    return objeto;
}

/// The members of an object, without its braces.
std::string membros(const Json& objeto) {
    const std::string texto = objeto.dump();
    return texto.substr(1, texto.size() - 2);
}

} // namespace

void RelatorJson::iniciar(const std::filesystem::path& arquivo, VistaTexto tipo, const std::filesystem::path& log) {
    const Json inicio{{"versao", versao},
                      {"arquivo", utf8DeTexto(textoDoCaminho(arquivo))},
                      {"tipo", utf8DeTexto(tipo)},
                      {"log", utf8DeTexto(textoDoCaminho(log))}};
    saida_ << '{' << membros(inicio) << ",\"achados\":[";
    primeiro_ = true;
}

void RelatorJson::achado(const Achado& achado) {
    saida_ << (primeiro_ ? "" : ",") << objetoDo(achado).dump();
    primeiro_ = false;
}

void RelatorJson::terminar(const Resumo& resumo, int situacao) {
    const Json fim{{"desfecho", nomeDo(resumo.desfecho)},        {"situacao", situacao},
                   {"descricao", utf8DeTexto(resumo.descricao)}, {"erros", resumo.totalErros},
                   {"registros", resumo.totalRegistros},         {"guias", resumo.guiasDepuradas},
                   {"guiasAceitas", resumo.guiasAceitas},        {"guiasRejeitadas", resumo.guiasRejeitadas}};
    saida_ << "]," << membros(fim) << "}" << std::endl;
}

} // namespace quilatador
