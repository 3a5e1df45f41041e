#include "cli/TextosDoResumo.h"

#include "frontend/TextosDaConferencia.h"

namespace quilatador {

namespace {

Texto contarErros(std::int64_t erros) {
    return contagem(erros, "erro"_t, "erros"_t);
}

Texto contarOcorrencias(std::int64_t registros) {
    return contagem(registros, "registro com ocorrência"_t, "registros com ocorrência"_t);
}

/// How many slips were read, and of which of them the content was checked: the last one alone, and not even that one
/// where the trailer was not reached. Where a complete check follows, that is the log's part only.
Texto guiasDe(const Resumo& resumo, bool completa) {
    Texto lidas = contagem(resumo.guiasDepuradas, "guia lida"_t, "guias lidas"_t);
    const bool algumaConferida = resumo.guiasAceitas + resumo.guiasRejeitadas > 0;
    const VistaTexto peloLog = completa ? "pelo log, "_t : ""_t;
    if (!algumaConferida) return junta(lidas, "; "_t, peloLog, "nenhuma teve o conteúdo conferido"_t);
    if (resumo.guiasDepuradas == 1) return lidas;
    return junta(lidas, "; "_t, peloLog, "só a última teve o conteúdo conferido"_t,
                 completa ? ""_t : " (--completa confere todas)"_t);
}

Texto achadosDe(TipoArquivo tipo, const Resumo& resumo, bool completa) {
    switch (tipo) {
    case TipoArquivo::ZUL702:
        return junta(contarErros(resumo.totalErros), "; "_t, guiasDe(resumo, completa));
    case TipoArquivo::ZUL708:
        return contarOcorrencias(resumo.totalErros);
    case TipoArquivo::TAV001:
        return contagem(resumo.totalRegistros, "registro lido"_t, "registros lidos"_t);
    }
    return {};
}

Texto fimDe(TipoArquivo tipo, const Resumo& resumo, bool completa) {
    switch (resumo.desfecho) {
    case Desfecho::Concluida:
        return achadosDe(tipo, resumo, completa);
    case Desfecho::Cancelada:
        return Texto("análise cancelada"_t);
    case Desfecho::Falhou:
        return resumo.linhaDaParada == 0
                   ? Texto("análise interrompida por erro no arquivo"_t)
                   : junta("análise interrompida por erro no arquivo, linha "_t, textoDe(resumo.linhaDaParada));
    case Desfecho::NaoRodou:
        return Texto("não foi possível analisar"_t);
    }
    return {};
}

} // namespace

Texto textoDoResumo(TipoArquivo tipo, const Resumo& resumo, bool completa) {
    const Texto fim = fimDe(tipo, resumo, completa);
    return resumo.descricao.empty() ? fim : junta(fim, ": "_t, resumo.descricao);
}

void Totais::somar(TipoArquivo tipo, const Resumo& resumo) noexcept {
    (tipo == TipoArquivo::ZUL708 ? ocorrencias_ : erros_) += resumo.totalErros;
    if (resumo.desfecho == Desfecho::Concluida) ++(resumo.totalErros == 0 ? semAchados_ : comAchados_);
    if (resumo.desfecho == Desfecho::Falhou) ++comParada_;
    if (resumo.desfecho == Desfecho::Cancelada) ++cancelados_;
}

Texto Totais::texto(std::size_t arquivos, bool completa) const {
    const std::size_t naoAnalisados = arquivos - semAchados_ - comAchados_ - comParada_ - cancelados_;
    Texto linha = junta("Total de "_t, textoDe(static_cast<long long>(arquivos)),
                        completa ? " arquivos, pelos logs: "_t : " arquivos: "_t, contarErros(erros_));
    if (ocorrencias_ > 0) linha += junta(", "_t, contarOcorrencias(ocorrencias_));
    const auto somarFim = [&](std::size_t quantos, VistaTexto singular, VistaTexto plural) {
        if (quantos > 0) linha += junta("; "_t, contagem(static_cast<std::int64_t>(quantos), singular, plural));
    };
    somarFim(semAchados_, "sem erros"_t, "sem erros"_t);
    somarFim(comAchados_, "com erros ou ocorrências"_t, "com erros ou ocorrências"_t);
    somarFim(comParada_, "interrompido por erro"_t, "interrompidos por erro"_t);
    somarFim(cancelados_, "cancelado"_t, "cancelados"_t);
    somarFim(naoAnalisados, "não analisado"_t, "não analisados"_t);
    return linha;
}

} // namespace quilatador
