#include "frontend/window/qt/JanelaDeTeste.h"

#include <QPointer>

namespace quilatador {
namespace {

class Sobre : public testes::JanelaDeTeste {
  protected:
    QDialog& abrirSobre() {
        abrir();
        clicar("cmdSobre");
        return *controle<QDialog>("frmSobre");
    }
    static std::string legendaEm(const QDialog& sobre, const char* nome) {
        return sobre.findChild<QWidget*>(QString::fromLatin1(nome))->property("text").toString().toStdString();
    }
};

TEST_F(Sobre, mostraOMesDoExecutavel) {
    mundo.arquivos.datas["/programa/Quilatador.exe"] = fazData(1999, 11, 30);
    const QDialog& sobre = abrirSobre();
    EXPECT_EQ(sobre.windowTitle(), QStringLiteral("Sobre o Quilatador..."));
    EXPECT_EQ(legendaEm(sobre, "lblTitle"), "Solvara - Quilatador de Leiaute");
    EXPECT_EQ(legendaEm(sobre, "lblVersion"), "Versão 1.00.01 - novembro/1999");
}

TEST_F(Sobre, abreTambemSemADataDoExecutavel) {
    EXPECT_EQ(legendaEm(abrirSobre(), "lblVersion"), "Versão 1.00.01 - ");
}

TEST_F(Sobre, fechaComOKOuEscape) {
    const auto fecha = [&](auto fechar) {
        const QPointer<QDialog> sobre = &abrirSobre();
        EXPECT_TRUE(sobre->isVisible());
        fechar(*sobre);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(sobre.isNull());
        EXPECT_TRUE(janela.isVisible());
    };
    fecha([](QDialog& sobre) {
        QTest::mouseClick(sobre.findChild<QPushButton*>(QStringLiteral("cmdOk")), Qt::LeftButton);
    });
    fecha([](QDialog& sobre) { QTest::keyClick(&sobre, Qt::Key_Escape); });
    fecha([](QDialog& sobre) { QTest::keyClick(&sobre, Qt::Key_Return); });
}

} // namespace
} // namespace quilatador
