#include "frontend/window/qt/Aplicacao.h"
#include "frontend/window/qt/Conversoes.h"
#include "frontend/window/qt/DialogosQt.h"
#include "platform/ArquivosDoSistema.h"
#include "platform/CanaisPadrao.h"
#include "platform/Interrupcao.h"
#include "platform/LancadorDoSistema.h"
#include "platform/LocalidadeDoSistema.h"
#include "platform/Pastas.h"
#include "platform/RelogioDoSistema.h"
#include "run/Situacao.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

int main(int argc, char** argv) {
    using namespace quilatador;
    ocuparCanaisFechados();
    QApplication programa(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/logo.svg")));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.quilatador.Quilatador"));

    QTranslator traducao; // for the dialogs and menus of Qt itself; our own texts are always in Portuguese
    if (traducao.load(QStringLiteral("qtbase_pt_BR"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&traducao);

    RelogioDoSistema relogio;
    LocalidadeDoSistema localidade;
    LancadorDoSistema lancador;
    ArquivosDoSistema arquivos;
    DialogosQt dialogos;
    Aplicacao aplicacao({.relogio = relogio,
                         .localidade = localidade,
                         .lancador = lancador,
                         .arquivos = arquivos,
                         .dialogos = dialogos,
                         .pastaDoPrograma = pastaDoPrograma(),
                         .programa = caminhoDeQt(QApplication::applicationFilePath())});
    if (!aplicacao.iniciar()) return 1;
    const QStringList argumentos = QApplication::arguments();
    if (argumentos.size() > 1)
        aplicacao.receber(caminhoDeQt(QDir::toNativeSeparators(QFileInfo(argumentos[1]).absoluteFilePath())));
    const Interrupcao interrupcao;
    aplicacao.encerrarQuando([&] { return interrupcao.pedida(); });
    const int fim = QApplication::exec();
    return interrupcao.pedida() ? situacao::interrompido : fim;
}
