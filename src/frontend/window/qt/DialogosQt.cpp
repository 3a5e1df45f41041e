#include "frontend/window/qt/DialogosQt.h"

#include "frontend/window/qt/Conversoes.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

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

} // namespace

void DialogosQt::mensagem(QWidget* janela, const Mensagem& mensagem) {
    QMessageBox caixa(janela);
    caixa.setIcon(mensagem.icone == Mensagem::Icone::Exclamacao ? QMessageBox::Warning : QMessageBox::NoIcon);
    caixa.setWindowTitle(paraQt(mensagem.titulo));
    caixa.setTextFormat(Qt::PlainText); // a file name may contain "<" and "&"
    caixa.setText(paraQt(mensagem.texto));
    caixa.setStandardButtons(QMessageBox::Ok);
    caixa.exec();
}

std::optional<std::filesystem::path> DialogosQt::escolherArquivo(QWidget& janela, const std::filesystem::path& ultimo) {
    QFileDialog dialogo(&janela, u"Nome do Arquivo"_s, pastaInicial());
    dialogo.setFileMode(QFileDialog::ExistingFile);
    dialogo.setNameFilters(filtros());
    if (!ultimo.empty()) dialogo.selectFile(caminhoParaQt(ultimo));
    if (dialogo.exec() != QDialog::Accepted) return std::nullopt;
    return caminhoDeQt(QDir::toNativeSeparators(dialogo.selectedFiles().constFirst()));
}

} // namespace quilatador
