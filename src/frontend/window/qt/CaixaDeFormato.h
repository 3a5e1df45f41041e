#pragma once

#include <QComboBox>

namespace quilatador {

/// The box for the format of the date: it offers some, and the user may type another. A screen reader hears its name
/// first and then its text, on every system.
class CaixaDeFormato final : public QComboBox {
    Q_OBJECT

  public:
    explicit CaixaDeFormato(QWidget* dono = nullptr);
};

} // namespace quilatador
