#include "frontend/window/qt/CaixaDeFormato.h"

#include "frontend/Pedido.h"
#include "frontend/window/qt/Conversoes.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace quilatador {

using namespace Qt::StringLiterals;

namespace {

/// What the box says of itself. On Unix, that of the toolkit gives the text of an editable box as its name.
class FormatoAcessivel final : public QAccessibleWidget {
  public:
    explicit FormatoAcessivel(CaixaDeFormato* caixa) : QAccessibleWidget(caixa, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text parte) const override {
        return parte == QAccessible::Value ? caixa().currentText() : QAccessibleWidget::text(parte);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State estado = QAccessibleWidget::state();
        estado.editable = true;
        estado.expandable = true;
        return estado;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& acao) override {
        acao == showMenuAction() ? caixa().showPopup() : QAccessibleWidget::doAction(acao);
    }

  private:
    [[nodiscard]] CaixaDeFormato& caixa() const { return *static_cast<CaixaDeFormato*>(widget()); }
};

QAccessibleInterface* acessivel(const QString&, QObject* objeto) {
    auto* caixa = qobject_cast<CaixaDeFormato*>(objeto);
    return caixa ? new FormatoAcessivel(caixa) : nullptr;
}

} // namespace

CaixaDeFormato::CaixaDeFormato(QWidget* dono) : QComboBox(dono) {
    QAccessible::installFactory(acessivel); // a second time it changes nothing
    setEditable(true);
    setInsertPolicy(NoInsert); // a format that the user types is used, but not added to the list
    setCompleter(nullptr);     // and not completed to another one
    for (const VistaTexto oferecido : formatosOferecidos)
        addItem(paraQt(oferecido));
}

} // namespace quilatador
