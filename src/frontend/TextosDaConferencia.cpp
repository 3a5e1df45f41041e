#include "frontend/TextosDaConferencia.h"

#include "common/Numero.h"
#include "returns/Ocorrencias.h"

namespace quilatador {

namespace {

using Sinal = Veredito::Sinal;

/// The counts of one summary, all with the same separator.
class Contador {
  public:
    explicit Contador(VistaTexto milhar) : milhar_(milhar) {}

    [[nodiscard]] Texto operator()(std::int64_t numero, VistaTexto singular, VistaTexto plural) const {
        return contagem(numero, singular, plural, milhar_);
    }
    [[nodiscard]] Texto causas(std::int64_t numero) const { return (*this)(numero, "causa"_t, "causas"_t); }
    [[nodiscard]] Texto erros(std::int64_t numero) const { return (*this)(numero, "erro"_t, "erros"_t); }
    [[nodiscard]] Texto avisos(std::int64_t numero) const { return (*this)(numero, "aviso"_t, "avisos"_t); }
    [[nodiscard]] Texto guias(std::int64_t numero) const { return (*this)(numero, "guia"_t, "guias"_t); }
    [[nodiscard]] Texto linhas(std::int64_t numero) const { return (*this)(numero, "linha"_t, "linhas"_t); }
    [[nodiscard]] Texto ocorrencias(std::int64_t numero) const {
        return (*this)(numero, "ocorrência"_t, "ocorrências"_t);
    }

  private:
    VistaTexto milhar_;
};

Texto titulo(const ResumoCompleto& completa, const Contador& contar) {
    if (!completa.parcial()) return Texto("Conferência completa: "_t);
    return junta("Conferência completa "_t, completa.desfecho == Desfecho::Cancelada ? "cancelada"_t : "interrompida"_t,
                 " depois de "_t, contar.linhas(completa.registros), ": "_t);
}

Texto achadosDe(const ResumoCompleto& completa, const Contador& contar) {
    Texto texto;
    if (completa.erros > 0) texto = junta(contar.causas(completa.causas), " ("_t, contar.erros(completa.erros), ")"_t);
    if (completa.ocorrencias > 0)
        texto += junta(texto.empty() ? ""_t : ", "_t, contar.ocorrencias(completa.ocorrencias));
    if (texto.empty()) texto = "sem erros"_t;
    if (completa.avisos > 0) texto += junta(", "_t, contar.avisos(completa.avisos));
    if (completa.discutidos > 0) texto += junta(", "_t, contar(completa.discutidos, "discutido"_t, "discutidos"_t));
    return texto;
}

Texto naoConferidas(const ContagemDeGuias& guias, const Contador& contar) {
    if (guias.naoConferidas == 1) return Texto("; a outra guia não foi conferida"_t);
    return junta("; as outras "_t, contar.guias(guias.naoConferidas), " não foram conferidas"_t);
}

Texto guiasDe(const ResumoCompleto& completa, const Contador& contar) {
    const ContagemDeGuias& guias = completa.guias;
    const VistaTexto comErro = completa.ocorrencias > 0 ? "com ocorrência"_t : "com erro"_t;
    if (guias.lidas == 0) return {};
    Texto texto = junta("; "_t, contar.guias(guias.lidas), ": "_t);
    if (guias.naoConferidas == guias.lidas) return texto += "nenhuma conferida"_t;
    VistaTexto separador;
    const auto somar = [&](std::int64_t numero, VistaTexto singular, VistaTexto plural) {
        if (numero == 0) return;
        texto += junta(separador, contar(numero, singular, plural));
        separador = ", "_t;
    };
    somar(guias.certas, "certa"_t, "certas"_t);
    somar(guias.comErro, comErro, comErro);
    somar(guias.emParte, "conferida só em parte"_t, "conferidas só em parte"_t);
    if (guias.naoConferidas > 0) texto += naoConferidas(guias, contar);
    return texto;
}

Veredito daParada(const Resumo& resumo) {
    return {Sinal::Ruim,
            junta("Com erros na estrutura: "_t,
                  resumo.linhaDaParada == 0 ? resumo.descricao
                                            : junta("corrija primeiro a linha "_t, textoDe(resumo.linhaDaParada)))};
}

Veredito daCancelada(const ResumoCompleto& completa, const Contador& contar) {
    Texto texto = junta("Conferência cancelada depois de "_t, contar.linhas(completa.registros));
    if (completa.erros > 0) texto += junta(", com "_t, contar.causas(completa.causas), " até ali"_t);
    return {completa.erros > 0 ? Sinal::Ruim : Sinal::Atencao, texto};
}

Texto emGuias(const ContagemDeGuias& guias, VistaTexto milhar) {
    if (guias.comErro == 0) return {};
    if (guias.lidas == 1) return Texto(", na única guia"_t);
    return junta(", em "_t, comMilhares(guias.comErro, milhar), " das "_t, comMilhares(guias.lidas, milhar),
                 " guias"_t);
}

Veredito daCompleta(const Resumo& resumo, const ResumoCompleto& completa, VistaTexto milhar) {
    const Contador contar(milhar);
    if (completa.erros > 0 && resumo.totalErros == 0)
        return {Sinal::Ruim, junta("Com erros que o log não mostra: "_t, contar.causas(completa.causas))};
    if (completa.erros > 0)
        return {Sinal::Ruim, junta("Com erros: "_t, contar.causas(completa.causas), " a corrigir"_t,
                                   emGuias(completa.guias, milhar))};
    if (completa.ocorrencias > 0)
        return {Sinal::Ruim,
                junta("Com "_t, contar.ocorrencias(completa.ocorrencias), emGuias(completa.guias, milhar))};
    if (resumo.totalErros > 0)
        return {Sinal::Atencao, junta("Com "_t, contar.erros(resumo.totalErros),
                                      " no log que a conferência completa não confirma: vale conferir"_t)};
    if (completa.avisos > 0)
        return {Sinal::Atencao, junta("Sem erros, com "_t, contar.avisos(completa.avisos), ": vale conferir"_t)};
    return {Sinal::Bom, Texto("Sem erros e sem avisos"_t)};
}

/// Says of what the verdict is not; it is then no praise either.
void ressalvar(const ContagemDeGuias& guias, const Contador& contar, Veredito& julgado) {
    if (guias.emParte > 0)
        julgado.texto +=
            junta("; "_t, contar(guias.emParte, "guia conferida só em parte"_t, "guias conferidas só em parte"_t));
    if (guias.naoConferidas > 0)
        julgado.texto += junta("; "_t, contar(guias.naoConferidas, "guia não conferida"_t, "guias não conferidas"_t));
    if (guias.emParte + guias.naoConferidas > 0 && julgado.sinal == Sinal::Bom) julgado.sinal = Sinal::Atencao;
}

Veredito naoAnalisado(VistaTexto motivo) {
    return {Sinal::Ruim, junta("Não foi possível analisar: "_t, motivo)};
}

} // namespace

Texto contagem(std::int64_t numero, VistaTexto singular, VistaTexto plural, VistaTexto milhar) {
    return junta(comMilhares(numero, milhar), " "_t, numero == 1 ? singular : plural);
}

VistaTexto classeDo(const Achado& achado) {
    if (achado.discutido) return "Discutido"_t;
    switch (achado.gravidade) {
    case Gravidade::Erro:
        return "Erro"_t;
    case Gravidade::Ocorrencia:
        return "Ocorrência"_t;
    case Gravidade::Estrutural:
        return "Erro de estrutura"_t;
    case Gravidade::Aviso:
        return "Aviso"_t;
    }
    return {};
}

VistaTexto mensagemComum(const Achado& achado) {
    return achado.gravidade == Gravidade::Ocorrencia ? Ocorrencias::semRegistro(achado.mensagem)
                                                     : VistaTexto(achado.mensagem);
}

Texto textoDoCampo(const CampoDoAchado& campo) {
    Texto posicoes = campo.inicio == campo.fim
                         ? junta("posição "_t, textoDe(campo.inicio))
                         : junta("posições "_t, textoDe(campo.inicio), " a "_t, textoDe(campo.fim));
    if (campo.nome.empty()) return posicoes; // behind the last field
    return junta("campo "_t, campo.nome, " ("_t, posicoes, ")"_t);
}

Texto textoDoLugar(std::int64_t linha, std::int64_t guia, VistaTexto idGuia) {
    Texto texto;
    if (linha > 0) texto = junta("linha "_t, textoDe(linha));
    if (guia == 0) return texto;
    texto += junta(linha > 0 ? ", guia "_t : "guia "_t, textoDe(guia));
    const VistaTexto id = semBrancos(idGuia);
    return id.empty() ? texto : texto += junta(" (IdGuia "_t, id, ")"_t);
}

Texto textoDaCausa(std::int64_t linha, std::int64_t linhaDaCausa, VistaTexto mensagem) {
    const Texto lugar = linhaDaCausa == linha ? Texto("e outro achado desta linha"_t)
                        : linhaDaCausa == 0   ? Texto("e outro achado"_t)
                                              : junta("o achado da linha "_t, textoDe(linhaDaCausa));
    return junta("decorre d"_t, lugar, ": "_t, mensagem);
}

Texto formatoNaPosicao(VistaTexto formato, int posicao) {
    return junta(formato, " na posição "_t, textoDe(posicao));
}

Texto acertosDasParcelas(std::int64_t acertos, std::int64_t parcelas, VistaTexto milhar) {
    return junta(comMilhares(acertos, milhar), " de "_t, contagem(parcelas, "parcela"_t, "parcelas"_t, milhar));
}

Texto textoDasDatas(const ResumoCompleto& completa, VistaTexto milhar) {
    if (completa.parcelas == 0 || completa.datas.empty()) return {};
    Texto lugares;
    for (const LugarDaData& lugar : completa.datas)
        lugares += junta(lugares.empty() ? ""_t : " ou "_t, formatoNaPosicao(lugar.formato, lugar.posicao));
    return junta("Data de vencimento no código de barras: "_t, lugares, ": "_t,
                 acertosDasParcelas(completa.datas.front().acertos, completa.parcelas, milhar));
}

Texto textoDaConferencia(const ResumoCompleto& completa, VistaTexto milhar) {
    const Contador contar(milhar);
    return junta(titulo(completa, contar), achadosDe(completa, contar), guiasDe(completa, contar));
}

Veredito veredito(const Resumo& resumo, const ResumoCompleto& completa, VistaTexto milhar) {
    if (resumo.desfecho == Desfecho::NaoRodou) return naoAnalisado(resumo.descricao);
    if (resumo.desfecho == Desfecho::Cancelada) return {Sinal::Atencao, Texto("Análise cancelada"_t)};
    if (resumo.desfecho == Desfecho::Falhou) return daParada(resumo);
    if (completa.desfecho == Desfecho::NaoRodou) return naoAnalisado(completa.descricao);
    const Contador contar(milhar);
    if (completa.desfecho == Desfecho::Cancelada) return daCancelada(completa, contar);
    Veredito julgado = daCompleta(resumo, completa, milhar);
    ressalvar(completa.guias, contar, julgado);
    return julgado;
}

} // namespace quilatador
