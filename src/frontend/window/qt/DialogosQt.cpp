#include "frontend/window/qt/DialogosQt.h"

#include "frontend/window/qt/Conversoes.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace quilatador {

using namespace Qt::StringLiterals;

namespace {

/// Both letter cases are given, because some systems distinguish names by case. "All files" is "*": "*.*" would leave
/// out names without a "." on these systems.
const QStringList& filtros() {
    static const QStringList lista{u"Arquivos de Remessa KV (*.rem *.REM)"_s, u"Arquivos de Retorno KV (*.ret *.RET)"_s,
                                   u"Todos os Arquivos (*)"_s};
    return lista;
}

QString pastaInicial() {
#ifdef Q_OS_WIN
    return u"C:\\"_s;
#else
    return QDir::homePath();
#endif
}

void preparar(QMessageBox& caixa, const Mensagem& mensagem) {
    caixa.setIcon(mensagem.icone == Mensagem::Icone::Exclamacao ? QMessageBox::Warning : QMessageBox::NoIcon);
    caixa.setWindowTitle(paraQt(mensagem.titulo));
    caixa.setTextFormat(Qt::PlainText); // a file name may contain "<" and "&"
    caixa.setText(paraQt(mensagem.texto));
    caixa.setTextInteractionFlags(Qt::TextSelectableByMouse); // so that a path can be taken along
    caixa.setStandardButtons(QMessageBox::Ok);
}

/// The file that the user chooses, with the separators of the system; nothing if the dialog is cancelled.
std::optional<std::filesystem::path> escolhido(QFileDialog& dialogo) {
    if (dialogo.exec() != QDialog::Accepted) return std::nullopt;
    return caminhoDeQt(QDir::toNativeSeparators(dialogo.selectedFiles().constFirst()));
}

} // namespace

void DialogosQt::mensagem(QWidget* janela, const Mensagem& mensagem) {
    QMessageBox caixa(janela);
    preparar(caixa, mensagem);
    caixa.exec();
}

std::optional<std::filesystem::path> DialogosQt::escolherLog(QWidget& janela, const Mensagem& recusa,
                                                             const std::filesystem::path& recusado) {
    QMessageBox caixa(&janela);
    preparar(caixa, recusa);
    QPushButton* const gravar = caixa.addButton(u"&Gravar o log em..."_s, QMessageBox::ActionRole);
    caixa.setDefaultButton(gravar);
    caixa.setEscapeButton(QMessageBox::Ok);
    caixa.exec();
    if (caixa.clickedButton() != gravar) return std::nullopt;
    QFileDialog dialogo(&janela, u"Gravar o log em"_s, QDir::homePath());
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setNameFilters({u"Arquivos de Log (*.log)"_s, u"Todos os Arquivos (*)"_s});
    dialogo.selectFile(caminhoParaQt(recusado.filename()));
    return escolhido(dialogo);
}

std::optional<std::filesystem::path> DialogosQt::escolherArquivo(QWidget& janela, const std::filesystem::path& ultimo) {
    QFileDialog dialogo(&janela, u"Nome do Arquivo"_s, pastaInicial());
    dialogo.setFileMode(QFileDialog::ExistingFile);
    dialogo.setNameFilters(filtros());
    if (!ultimo.empty()) dialogo.selectFile(caminhoParaQt(ultimo));
    return escolhido(dialogo);
}

} // namespace quilatador
