#include "mainwindow/picture_buttons.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "engine/spela_ljud.h"
#include "mainwindow/picture_stores.h"
#include "platform/input_gate.h"

namespace brusbo {

PictureButtons::PictureButtons(PictureButton& mnuArkiv, PictureButton& mnuOm,
                               PictureButton& butMini, PictureButton& butAvsluta)
    : rows_{{&mnuArkiv, Store::gimgArkiv},
            {&mnuOm, Store::gimgOm},
            {&butMini, Store::gimgMinimera},
            {&butAvsluta, Store::GimgAvsluta}} {
    qApp->installEventFilter(this);
}

void PictureButtons::MouseOver(PictureButton& NAME1, Store NAME2, float X, float Y) {
    if (capture_ == nullptr || capture_->button != &NAME1) {
        capture_ = std::ranges::find(rows_, &NAME1, &Row::button);
        NAME1.set_picture(picture_of({NAME2, 1}));
        Spela_ljud(sound_step);
        return;
    }
    // The right and lower bounds are inclusive.
    const auto width = static_cast<float>(NAME1.width());
    const auto height = static_cast<float>(NAME1.height());
    if (X < 0 || X > width || Y > height || Y < 0) release_capture();
}

void PictureButtons::release_capture() {
    if (const Row* const row = std::exchange(capture_, nullptr))
        row->button->set_picture(picture_of({row->store, 0}));
}

void PictureButtons::Rel() {
    capture_ = nullptr;
    for (const Row& row : rows_) row.button->set_picture(picture_of({row.store, 0}));
}

bool PictureButtons::eventFilter(QObject* receiver, QEvent* event) {
    // Movements made during an action come again after it.
    if (InputGate::instance().closed()) return false;
    // An event is seen once on its way to a window and again on its way to a widget of it.
    if (event->type() == QEvent::MouseMove && receiver->isWidgetType()) {
        const Row* const row =
            capture_ != nullptr ? capture_ : std::ranges::find(rows_, receiver, &Row::button);
        if (row != std::end(rows_)) mouse_moved(*row, InputGate::instance().pointer());
    } else if ((event->type() == QEvent::Leave || event->type() == QEvent::Enter) &&
               receiver->isWindowType() && capture_ != nullptr) {
        // The pointer may leap out of the window, or into another one, without moving there; where
        // a window merely opens under it, it still is on its button.
        mouse_moved(*capture_, QCursor::pos());
    }
    return false;
}

void PictureButtons::mouse_moved(const Row& row, QPointF global_place) {
    const QPointF place = row.button->mapFromGlobal(global_place);
    MouseOver(*row.button, row.store, static_cast<float>(place.x()), static_cast<float>(place.y()));
}

}  // namespace brusbo
