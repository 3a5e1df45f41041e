#pragma once

#include "run/Painel.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

namespace quilatador {

/// The part of the window that shows a running analysis: the frame `fraImportacao`.
class QuadroDoProgresso final : public QGroupBox {
    Q_OBJECT

  public:
    explicit QuadroDoProgresso(QWidget* dono = nullptr);

    void rotulo(Rotulo qual, VistaTexto texto);
    /// The number of slips to analyse; nothing for all of them.
    void totalDeGuias(std::optional<double> total);
    void mostrar(const Progresso& progresso, Relogio::Instante agora);

    QLabel* const lblEmpresa;
    QLabel* const lblRemessa;
    QLabel* const lblOperacao;
    QProgressBar* const pbrImportacao;
    QLabel* const lblRegistroAtual;
    QLabel* const lblTotalRegistros;
    QLabel* const lblGuiasDepuradas;
    QLabel* const lblTotalGuias;
    QLabel* const lblTempoDecorrido;
    QLabel* const lblTempoRestante;

  private:
    [[nodiscard]] QLayout* contagens();
};

} // namespace quilatador
