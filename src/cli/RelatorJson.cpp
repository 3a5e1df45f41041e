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

Json textoOuNulo(VistaTexto texto) {
    return texto.empty() ? Json() : Json(utf8DeTexto(texto));
}

Json numeroOuNulo(std::int64_t numero) {
    return numero == 0 ? Json() : Json(numero);
}

/// A number that was given in digits: it is written as such, if it is not too large for that.
Json numeroDado(double numero) {
    constexpr double maisExato = 9'007'199'254'740'992;
    return numero <= maisExato ? Json(static_cast<std::int64_t>(numero)) : Json(numero);
}

Json objetoCompletoDo(const Achado& achado) {
    Json objeto = objetoDo(achado);
    objeto["n"] = achado.n;
    objeto["causa"] = numeroOuNulo(achado.causa);
    objeto["guia"] = numeroOuNulo(achado.guia);
    objeto["idGuia"] = textoOuNulo(achado.idGuia);
    objeto["discutido"] = achado.discutido;
    if (achado.discutido) objeto["motivo"] = utf8DeTexto(achado.motivo);
    return objeto;
}

Json objetoDas(const ContagemDeGuias& guias) {
    return {{"lidas", guias.lidas},
            {"certas", guias.certas},
            {"comErro", guias.comErro},
            {"emParte", guias.emParte},
            {"naoConferidas", guias.naoConferidas}};
}

Json listaDas(const std::vector<LugarDaData>& datas) {
    Json lista = Json::array();
    for (const LugarDaData& data : datas)
        lista.push_back({{"formato", utf8DeTexto(data.formato)}, {"posicao", data.posicao}, {"acertos", data.acertos}});
    return lista;
}

/// The members of an object, without its braces.
std::string membros(const Json& objeto) {
    const std::string texto = objeto.dump();
    return texto.substr(1, texto.size() - 2);
}

} // namespace

std::string jsonDo(const Achado& achado) {
    return objetoCompletoDo(achado).dump();
}

void RelatorJson::iniciar(const Pedido& pedido, std::optional<double> primeiras, const std::filesystem::path& log) {
    const Json inicio{{"versao", versao},
                      {"arquivo", utf8DeTexto(textoDoCaminho(pedido.nomeArquivo))},
                      {"tipo", utf8DeTexto(quilatador::nomeDo(pedido.tipoArquivo))},
                      {"log", utf8DeTexto(textoDoCaminho(log))},
                      {"programa", {{"nome", "Quilatador de Leiaute"}, {"versao", QUILATADOR_VERSAO}}},
                      {"opcoes",
                       {{"comData", pedido.comData},
                        {"posicao", numeroDado(pedido.PosicaoDataBarra)},
                        {"formato", utf8DeTexto(pedido.FormatoDataBarra)},
                        {"primeiras", primeiras ? numeroDado(*primeiras) : Json()}}}};
    saida_ << '{' << membros(inicio) << ",\"achados\":[";
    primeiro_ = true;
    completa_ = false;
}

void RelatorJson::achado(const Achado& achado) {
    saida_ << (primeiro_ ? "" : ",") << (completa_ ? jsonDo(achado) : objetoDo(achado).dump());
    primeiro_ = false;
}

void RelatorJson::terminarRodada(const Resumo& resumo) {
    const Json fim{{"desfecho", nomeDo(resumo.desfecho)},
                   {"descricao", utf8DeTexto(resumo.descricao)},
                   {"erros", resumo.totalErros},
                   {"registros", resumo.totalRegistros},
                   {"guias", resumo.guiasDepuradas},
                   {"guiasAceitas", resumo.guiasAceitas},
                   {"guiasRejeitadas", resumo.guiasRejeitadas}};
    saida_ << "]," << membros(fim);
}

void RelatorJson::iniciarCompleta() {
    saida_ << R"(,"completa":{"achados":[)";
    primeiro_ = true;
    completa_ = true;
}

void RelatorJson::terminarCompleta(const ResumoCompleto& completa) {
    const Json fim{{"descricao", utf8DeTexto(completa.descricao)},
                   {"registros", completa.registros},
                   {"guias", objetoDas(completa.guias)},
                   {"causas", completa.causas},
                   {"erros", completa.erros},
                   {"avisos", completa.avisos},
                   {"discutidos", completa.discutidos},
                   {"ocorrencias", completa.ocorrencias},
                   {"parcelas", completa.parcelas},
                   {"datas", listaDas(completa.datas)}};
    const Json doArquivo{{"sha256", completa.sha256.empty() ? Json() : Json(completa.sha256)},
                         {"parcial", completa.parcial()}};
    saida_ << "]," << membros(fim) << "}," << membros(doArquivo);
}

void RelatorJson::semCompleta() {
    saida_ << ',' << membros({{"completa", nullptr}, {"sha256", nullptr}, {"parcial", true}});
}

void RelatorJson::terminar(int situacao) {
    saida_ << ',' << membros({{"situacao", situacao}}) << '}' << std::endl;
}

} // namespace quilatador
