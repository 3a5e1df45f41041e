#include "frontend/window/qt/JanelaDeTeste.h"

#include <QPointer>

namespace quilatador {
namespace {

using Sobre = testes::JanelaDeTeste;

TEST_F(Sobre, dizOMesDoExecutavelOuDoProprioProgramaAteOKOuEscape) {
    abrir();
    const auto versao = [&](bool fecharComOK) {
        clicar("cmdSobre");
        const QPointer<QDialog> sobre = controle<QDialog>("frmSobre");
        EXPECT_TRUE(sobre->isVisible());
        EXPECT_EQ(sobre->windowTitle(), QStringLiteral("Sobre o Quilatador..."));
        std::string vista = legenda("lblVersion");
        fecharComOK ? clicar("cmdOk") : QTest::keyClick(sobre, Qt::Key_Escape);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(sobre.isNull() && janela.isVisible());
        return vista;
    };
    EXPECT_EQ(versao(true), "Versão 1.00.01 - "); // neither tells
    mundo.arquivos.datas["/usr/bin/Quilatador"] = fazData(2026, 3, 31);
    EXPECT_EQ(versao(false), "Versão 1.00.01 - março/2026");
    mundo.arquivos.datas["/programa/Quilatador.exe"] = fazData(1999, 11, 30);
    EXPECT_EQ(versao(false), "Versão 1.00.01 - novembro/1999");
}

} // namespace
} // namespace quilatador
