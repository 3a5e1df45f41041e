#pragma once

#include "frontend/window/qt/Dialogos.h"
#include "frontend/window/qt/JanelaPrincipal.h"
#include "frontend/window/Tela.h"

#include <array>
#include <map>

namespace quilatador {

/// The window as the rules and the analyses see it. About thirty times a second, whatever the size of the file, it
/// shows the values that change with every record and lets events be handled.
class TelaQt final : public Tela {
  public:
    TelaQt(JanelaPrincipal& janela, Dialogos& dialogos, const Relogio& relogio);

    void rotulo(Rotulo qual, VistaTexto texto) override;
    void iniciarProgresso(const Progresso& progresso) override;
    void avancar(const Progresso& progresso) override;
    void concluirProgresso(const Progresso& progresso) override;
    void processarEventos() override;
    void mensagem(const Mensagem& mensagem) override;
    [[nodiscard]] std::optional<std::filesystem::path>
    outroLugarParaOLog(const Mensagem& recusa, const std::filesystem::path& recusado) override;
    [[nodiscard]] std::optional<double> primeirasGuias() const override;
    void mostrar(Controle controle, bool visivel) override;
    void habilitar(Controle controle, bool habilitado) override;
    void legenda(Controle controle, VistaTexto texto) override;
    void focar(Controle controle) override;
    void marcar(Controle controle, bool marcado) override;
    void escrever(Controle controle, VistaTexto texto) override;
    void nomeArquivo(const std::filesystem::path& caminho) override;
    void fechar() override;

  private:
    [[nodiscard]] QWidget* widget(Controle controle) const;
    [[nodiscard]] QAbstractButton* botao(Controle controle) const;

    JanelaPrincipal& janela_;
    Dialogos& dialogos_;
    const Relogio& relogio_;
    std::array<QWidget*, totalDeControles> controles_{}; ///< indexed by `Controle`
    std::map<Rotulo, Texto> rotulos_;                    ///< the texts that are shown
    Relogio::Instante proximoQuadro_{};                  ///< the earliest time of the next frame
};

} // namespace quilatador
