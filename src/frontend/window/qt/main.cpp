#include "frontend/window/qt/Aplicacao.h"
#include "frontend/window/qt/Conversoes.h"
#include "frontend/window/qt/DialogosQt.h"
#include "frontend/window/qt/Programa.h"
#include "platform/ArquivosDoSistema.h"
#include "platform/CanaisPadrao.h"
#include "platform/Interrupcao.h"
#include "platform/LancadorDoSistema.h"
#include "platform/LocalidadeDoSistema.h"
#include "platform/Pastas.h"
#include "platform/RelogioDoSistema.h"
#include "run/Situacao.h"

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

namespace quilatador {
namespace {

int rodar(Dialogos& dialogos) {
    Programa::setWindowIcon(QIcon(QStringLiteral(":/logo.svg")));
    Programa::setDesktopFileName(QStringLiteral("org.quilatador.Quilatador"));
    QTranslator traducao; // for the dialogs and menus of Qt itself; our own texts are always in Portuguese
    if (traducao.load(QStringLiteral("qtbase_pt_BR"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        Programa::installTranslator(&traducao);

    RelogioDoSistema relogio;
    LocalidadeDoSistema localidade;
    ArquivosDoSistema arquivos;
    Aplicacao* janela = nullptr;
    QObject correio; // what it has not delivered is dropped when it ends, after the launcher and its threads
    LancadorDoSistema lancador([&](const std::filesystem::path& caminho) {
        QMetaObject::invokeMethod(
            &correio, [&janela, caminho] { janela->semPrograma(caminho); }, Qt::QueuedConnection);
    });
    Aplicacao aplicacao({.relogio = relogio,
                         .localidade = localidade,
                         .lancador = lancador,
                         .arquivos = arquivos,
                         .dialogos = dialogos,
                         .pastaDoPrograma = pastaDoPrograma(),
                         .programa = caminhoDeQt(Programa::applicationFilePath())});
    janela = &aplicacao;
    if (!aplicacao.iniciar()) return 1;
    if (const QStringList argumentos = Programa::arguments(); argumentos.size() > 1)
        QTimer::singleShot(0, &correio, [&aplicacao, arquivo = QFileInfo(argumentos[1]).absoluteFilePath()] {
            aplicacao.receber(caminhoDeQt(QDir::toNativeSeparators(arquivo)));
        });
    const Interrupcao interrupcao;
    aplicacao.encerrarQuando([&] { return interrupcao.pedida(); });
    const int fim = Programa::exec();
    return interrupcao.pedida() ? situacao::interrompido : fim;
}

} // namespace
} // namespace quilatador

int main(int argc, char** argv) {
    using namespace quilatador;
    ocuparCanaisFechados();
    DialogosQt dialogos;
    Programa programa(argc, argv);
    programa.avisar = [&](const Mensagem& mensagem) { dialogos.mensagem(Programa::activeWindow(), mensagem); };
    try {
        return rodar(dialogos);
    } catch (...) {
        programa.contarExcecao();
        return 1;
    }
}
