#include "platform/accessible.h"

#include <QAbstractButton>
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

/// Qt's own interface toggles option buttons without a click, refuses at once where a click waits
/// for the end of an action, and presses with a delay.
class AccessibleButton : public QAccessibleWidget {
   public:
    explicit AccessibleButton(QAbstractButton* button)
        : QAccessibleWidget(button, role_of(*button)) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = true;
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        return state;
    }

    QStringList actionNames() const override {
        return {button()->isCheckable() ? toggleAction() : pressAction(), setFocusAction()};
    }

    void doAction(const QString& action) override {
        if (action == setFocusAction()) return QAccessibleWidget::doAction(action);
        const auto click = [target = QPointer(button())] {
            if (target && target->isVisible() && takes_input(*target)) target->click();
        };
        // Later, for whoever presses waits for an answer, and an action takes its time.
        auto& gate = InputGate::instance();
        QMetaObject::invokeMethod(
            &gate, [&gate, click] { gate.deliver(click); }, Qt::QueuedConnection);
    }

   private:
    QAbstractButton* button() const { return static_cast<QAbstractButton*>(object()); }
};

}  // namespace

void install_accessible_buttons() {
    QAccessible::installFactory([](const QString& name, QObject* object) -> QAccessibleInterface* {
        // Qt knows ours by what they derive from; its own buttons have names of their own.
        const bool ours =
            name == object->metaObject()->className() &&
            (name == QLatin1String("QAbstractButton") || name == QLatin1String("QCheckBox"));
        return ours ? new AccessibleButton(static_cast<QAbstractButton*>(object)) : nullptr;
    });
}

}  // namespace brusbo
