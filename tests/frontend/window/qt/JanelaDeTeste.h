#pragma once

#include "frontend/window/qt/Aplicacao.h"
#include "frontend/window/qt/Conversoes.h"
#include "frontend/window/qt/Programa.h"
#include "support/Remessas.h"

#include <gtest/gtest.h>
#include <QTest>

namespace quilatador::testes {

/// Answers at once: keeps the messages, and gives the file that a test has chosen.
class DialogosFalsos final : public Dialogos {
  public:
    void mensagem(QWidget*, const Mensagem& mensagem) override {
        if (falha) std::exchange(falha, nullptr)();
        mensagens.push_back(mensagem);
    }
    [[nodiscard]] std::optional<std::filesystem::path> escolherLog(QWidget& janela, const Mensagem& recusa,
                                                                   const std::filesystem::path& recusado) override {
        mensagem(&janela, recusa);
        ultimos.push_back(recusado);
        return escolhido;
    }
    [[nodiscard]] std::optional<std::filesystem::path> escolherArquivo(QWidget&,
                                                                       const std::filesystem::path& ultimo) override {
        ultimos.push_back(ultimo);
        return escolhido;
    }

    /// Texts of the messages, which are forgotten.
    [[nodiscard]] std::vector<std::string> textos() {
        std::vector<std::string> textos;
        for (const Mensagem& mensagem : std::exchange(mensagens, {}))
            textos.push_back(utf8DeTexto(mensagem.texto));
        return textos;
    }

    std::vector<Mensagem> mensagens;
    std::function<void()> falha;                ///< throws in place of the next message
    std::vector<std::filesystem::path> ultimos; ///< what the file dialog was told
    std::optional<std::filesystem::path> escolhido;
};

/// A clock that goes on by one frame of the display whenever it is read, so that events are handled at each reading
/// however fast the machine is.
class RelogioDeQuadros final : public Relogio {
  public:
    [[nodiscard]] Data hoje() const override { return fazData(2026, 3, 10); }
    [[nodiscard]] Instante agora() const override { return agora_ += std::chrono::milliseconds(40); }

  private:
    mutable Instante agora_ = std::chrono::hours(100); ///< the machine was not started for the test
};

/// The real window over a machine of fakes, which has the program's files.
class JanelaDeTeste : public testing::Test {
  protected:
    JanelaDeTeste() {
        static const Texto leiaute = lerTexto(QUILATADOR_LEIAUTE);
        static const Texto tabelas = lerTexto(QUILATADOR_TABELAS);
        mundo.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = leiaute;
        mundo.arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = tabelas;
        static_cast<Programa*>(qApp)->avisar = [this](const Mensagem& dita) { dialogos.mensagem(&janela, dita); };
    }

    /// Shows the window, in front and with the focus.
    void abrir() {
        ASSERT_TRUE(aplicacao.iniciar());
        janela.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&janela));
    }

    template <typename Widget = QWidget>
    [[nodiscard]] Widget* controle(const char* nome) {
        auto* achado = janela.findChild<Widget*>(QString::fromLatin1(nome));
        if (!achado) throw std::runtime_error(std::string("no control ") + nome);
        return achado;
    }
    void clicar(const char* nome) { QTest::mouseClick(controle(nome), Qt::LeftButton); }
    void escolher(const char* nome) { controle<QAbstractButton>(nome)->click(); }
    void digitar(const char* nome, const char* texto) {
        auto* caixa = controle<QLineEdit>(nome);
        caixa->setFocus();
        caixa->selectAll();
        QTest::keyClicks(caixa, QString::fromUtf8(texto));
    }
    [[nodiscard]] std::string texto(const char* nome) { return controle<QLineEdit>(nome)->text().toStdString(); }
    [[nodiscard]] std::string legenda(const char* nome) {
        return controle(nome)->property("text").toString().toStdString();
    }
    [[nodiscard]] bool visivel(const char* nome) { return controle(nome)->isVisible(); }
    [[nodiscard]] bool habilitado(const char* nome) { return controle(nome)->isEnabled(); }
    [[nodiscard]] std::string focado() {
        return janela.focusWidget() ? janela.focusWidget()->objectName().toStdString() : "";
    }

    MundoFalso mundo;
    RelogioDeQuadros relogio;
    DialogosFalsos dialogos;
    Aplicacao aplicacao{{.relogio = relogio,
                         .localidade = mundo.localidade,
                         .lancador = mundo.lancador,
                         .arquivos = mundo.arquivos,
                         .dialogos = dialogos,
                         .pastaDoPrograma = "/programa",
                         .programa = "/usr/bin/Quilatador"}};
    JanelaPrincipal& janela = aplicacao.janela();
};

} // namespace quilatador::testes
