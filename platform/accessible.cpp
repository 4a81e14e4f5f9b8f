#include "platform/accessible.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QPointer>

#include "platform/input_gate.h"

namespace brusbo {

namespace {

QAccessible::Role role_of(const QAbstractButton& button) {
    if (qobject_cast<const QCheckBox*>(&button) != nullptr) return QAccessible::CheckBox;
    return button.isCheckable() ? QAccessible::RadioButton : QAccessible::Button;
}

void click(QAbstractButton* button) {
    if (button->isVisible() && !blocked_by_modal(*button)) button->click();
}

class AccessibleButton : public QAccessibleWidget {
   public:
    explicit AccessibleButton(QAbstractButton* button)
        : QAccessibleWidget(button, role_of(*button)) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && button()->accessibleName().isEmpty())
            return button()->text();
        return QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override {
        return {button()->isCheckable() ? toggleAction() : pressAction(), setFocusAction()};
    }

    void doAction(const QString& action) override {
        if (action != pressAction() && action != toggleAction()) {
            QAccessibleWidget::doAction(action);
            return;
        }
        InputGate::instance().deliver([target = QPointer(button())] {
            if (target) click(target);
        });
    }

   private:
    QAbstractButton* button() const { return static_cast<QAbstractButton*>(object()); }
};

QAccessibleInterface* make_accessible(const QString& class_name, QObject* object) {
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (button == nullptr || !class_name.startsWith(QLatin1String("brusbo::"))) return nullptr;
    return new AccessibleButton(button);
}

}  // namespace

void install_accessible_buttons() { QAccessible::installFactory(make_accessible); }

}  // namespace brusbo
