#pragma once

#include <QScrollArea>

namespace quilatador {

/// The part of a window that scrolls where the screen is too small for it. It asks for all the space that its content
/// would like, is content with a few lines, and keeps the control that has the focus in sight.
class AreaRolavel final : public QScrollArea {
    Q_OBJECT

  public:
    /// Takes `conteudo` over.
    explicit AreaRolavel(QWidget* conteudo, QWidget* dono = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
};

} // namespace quilatador
