#include "frontend/window/qt/JanelaDeTeste.h"

#include <QPointer>

namespace quilatador {
namespace {

using Sobre = testes::JanelaDeTeste;

TEST_F(Sobre, dizOMesDoExecutavelOuDoProprioPrograma) {
    abrir();
    const auto versao = [&] {
        clicar("cmdSobre");
        auto* sobre = controle<QDialog>("frmSobre");
        EXPECT_EQ(sobre->windowTitle(), QStringLiteral("Sobre o Quilatador..."));
        std::string vista = legenda("lblVersion");
        delete sobre;
        return vista;
    };
    EXPECT_EQ(versao(), "Versão 1.00.01 - "); // neither tells
    mundo.arquivos.datas["/usr/bin/Quilatador"] = fazData(2026, 3, 31);
    EXPECT_EQ(versao(), "Versão 1.00.01 - março/2026");
    mundo.arquivos.datas["/programa/Quilatador.exe"] = fazData(1999, 11, 30);
    EXPECT_EQ(versao(), "Versão 1.00.01 - novembro/1999");
}

TEST_F(Sobre, fechaComOKOuEscape) {
    abrir();
    for (const bool comOK : {true, false}) {
        clicar("cmdSobre");
        const QPointer<QDialog> sobre = controle<QDialog>("frmSobre");
        EXPECT_TRUE(sobre->isVisible());
        comOK ? clicar("cmdOk") : QTest::keyClick(sobre, Qt::Key_Escape);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(sobre.isNull());
        EXPECT_TRUE(janela.isVisible());
    }
}

} // namespace
} // namespace quilatador
