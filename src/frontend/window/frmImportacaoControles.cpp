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
    mudarNomeArquivo(true);
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

void frmImportacao::sairDaPosicao(const Pedido& pedido) {
    static_cast<void>(posicaoRecusada(pedido));
}

void frmImportacao::mudarNomeArquivo(bool vazio) {
    tela_.habilitar(Controle::cmdOK, !vazio);
}

void frmImportacao::tomarArquivo(const std::filesystem::path& arquivo) {
    ultimoArquivo_ = arquivo;
    if (!ambiente_.arquivos.existe(arquivo)) return;
    tela_.nomeArquivo(arquivo);
    tela_.habilitar(Controle::cmdOK, true);
}

void frmImportacao::receberArquivo(const std::filesystem::path& arquivo) {
    if (analisando_) return;
    tomarArquivo(arquivo);
    const auto tipo = reconhecerTipo(arquivo, ambiente_.arquivos);
    if (!tipo) return;
    tela_.marcar(opcaoDo(*tipo), true);
    escolherTipo(*tipo);
}

void frmImportacao::abrirAjuda() {
    ambiente_.lancador.abrirDocumento(ambiente_.ajuda());
}

void frmImportacao::abrirLeiaute() {
    ambiente_.lancador.abrirDocumento(ambiente_.documentoDosLeiautes());
}

} // namespace quilatador
