#include "frontend/window/frmImportacao.h"

#include "common/modDepuracao.h"

#include <algorithm>
#include <iterator>

namespace quilatador {

namespace {

Controle opcaoDo(TipoArquivo tipo) {
    switch (tipo) {
    case TipoArquivo::ZUL702:
        return Controle::opt702;
    case TipoArquivo::ZUL708:
        return Controle::opt708;
    case TipoArquivo::TAV001:
        return Controle::optTAV;
    }
    return Controle::opt702;
}

} // namespace

bool frmImportacao::Form_Load() {
    tela_.marcar(Controle::chkData, false);
    tela_.escrever(Controle::txtPosicao, posicaoInicial);
    tela_.escrever(Controle::cmbFormato, formatoInicial);
    tela_.escrever(Controle::txtNumeroDetalhes, numeroDeGuiasInicial);
    tela_.marcar(Controle::optTodosDetalhes, true);
    tela_.marcar(Controle::opt702, true);
    escolherComData(false);
    escolherPrimeirasGuias(false);
    escolherTipo(TipoArquivo::ZUL702);
    mudarNomeArquivo({});
    return trabalho_.iniciar();
}

void frmImportacao::escolherTipo(TipoArquivo tipo) {
    const bool remessa = tipo == TipoArquivo::ZUL702;
    tela_.mostrar(Controle::Frame1, remessa);
    tela_.mostrar(Controle::fraDetalhes, remessa);
}

void frmImportacao::escolherComData(bool comData) {
    tela_.habilitar(Controle::txtPosicao, comData);
    tela_.habilitar(Controle::cmbFormato, comData);
}

void frmImportacao::escolherPrimeirasGuias(bool apenasPrimeiras) {
    tela_.habilitar(Controle::txtNumeroDetalhes, apenasPrimeiras);
}

Texto frmImportacao::filtrarDigitos(VistaTexto texto) {
    Texto digitos;
    std::ranges::copy_if(texto, std::back_inserter(digitos), [](char c) { return modDepuracao::isDigito(c); });
    return digitos;
}

void frmImportacao::sairDoNumeroDeGuias(VistaTexto texto) {
    if (texto.empty()) tela_.escrever(Controle::txtNumeroDetalhes, numeroDeGuiasInicial);
}

bool frmImportacao::sairDaPosicao(const Pedido& pedido) {
    const bool caixaEmUso = !analisando_ && pedido.tipoArquivo == TipoArquivo::ZUL702 && pedido.comData;
    return !caixaEmUso || !recusar(recusaDaPosicao(pedido.PosicaoDataBarra));
}

void frmImportacao::mudarNomeArquivo(const std::filesystem::path& arquivo) {
    tela_.habilitar(Controle::cmdOK, !arquivo.empty());
    tela_.escrever(Controle::lblAviso, arquivo == reconhecido_ ? aviso_ : ""_t);
}

void frmImportacao::sairDoNomeArquivo(const std::filesystem::path& arquivo) {
    if (!analisando_ && arquivo != reconhecido_) reconhecer(arquivo);
}

void frmImportacao::reconhecer(const std::filesystem::path& arquivo) {
    const auto tipo = reconhecerTipo(arquivo, ambiente_.arquivos);
    reconhecido_ = arquivo;
    aviso_ = tipo || arquivo.empty()              ? ""_t
             : ambiente_.arquivos.existe(arquivo) ? "Tipo não reconhecido pelo conteúdo. Confira o tipo escolhido."_t
                                                  : "Não existe arquivo com este nome."_t;
    tela_.escrever(Controle::lblAviso, aviso_);
    if (!tipo) return;
    tela_.marcar(opcaoDo(*tipo), true);
    escolherTipo(*tipo);
}

void frmImportacao::tomarArquivo(const std::filesystem::path& arquivo) {
    ultimoArquivo_ = arquivo;
    if (!ambiente_.arquivos.existe(arquivo)) return;
    tela_.nomeArquivo(arquivo);
    tela_.habilitar(Controle::cmdOK, true);
    reconhecer(arquivo);
}

void frmImportacao::receberArquivo(const std::filesystem::path& arquivo) {
    if (analisando_) return;
    tomarArquivo(arquivo);
    if (!ambiente_.arquivos.existe(arquivo))
        tela_.mensagem({.texto = junta("Arquivo não encontrado: "_t, textoDoCaminho(arquivo)),
                        .titulo = Texto(tituloDeErro),
                        .icone = Mensagem::Icone::Exclamacao});
}

void frmImportacao::abrirAjuda() {
    ambiente_.lancador.abrirDocumento(ambiente_.ajuda());
}

void frmImportacao::abrirLeiaute() {
    ambiente_.lancador.abrirDocumento(ambiente_.documentoDosLeiautes());
}

void frmImportacao::semPrograma(const std::filesystem::path& caminho) {
    if (!ambiente_.arquivos.existe(caminho)) return;
    tela_.mensagem({.texto = junta("Nenhum programa deste computador abriu o arquivo:\n"_t, textoDoCaminho(caminho)),
                    .titulo = Texto(tituloDoPrograma)});
}

} // namespace quilatador
