#pragma once

#include "common/Texto.h"

#include <QDialog>

namespace quilatador {

/// The About box, `frmSobre`.
class JanelaSobre final : public QDialog {
    Q_OBJECT

  public:
    /// `versao` is the version line as `frmSobre::versao` makes it.
    JanelaSobre(VistaTexto versao, QWidget* dono);
};

} // namespace quilatador
