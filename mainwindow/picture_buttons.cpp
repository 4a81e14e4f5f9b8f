#include "mainwindow/picture_buttons.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>

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

void PictureButtons::MouseOver(PictureButton& NAME1, Store NAME2, int X, int Y) {
    if (capture_ == nullptr || capture_->button != &NAME1) {
        for (Row& row : rows_)
            if (row.button == &NAME1) capture_ = &row;
        NAME1.set_picture(picture_of({NAME2, 1}));
        Spela_ljud(sound_step);
        return;
    }
    // The right and lower bounds are inclusive.
    if (X < 0 || X > NAME1.width() || Y > NAME1.height() || Y < 0) {
        capture_ = nullptr;
        NAME1.set_picture(picture_of({NAME2, 0}));
    }
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
        mouse_moved(receiver, static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    } else if (event->type() == QEvent::Leave && receiver->isWindowType() && capture_ != nullptr) {
        // The pointer may leave the program's windows in one leap; a window that merely opens
        // under it makes no movement.
        const QPoint place = capture_->button->mapFromGlobal(QCursor::pos());
        if (QApplication::topLevelAt(QCursor::pos()) == nullptr)
            MouseOver(*capture_->button, capture_->store, place.x(), place.y());
    }
    return false;
}

void PictureButtons::mouse_moved(const QObject* receiver, QPoint global_place) {
    const auto pass_to = [&](const Row& row) {
        const QPoint place = row.button->mapFromGlobal(global_place);
        MouseOver(*row.button, row.store, place.x(), place.y());
    };
    if (capture_ != nullptr) {
        pass_to(*capture_);
        return;
    }
    for (const Row& row : rows_)
        if (row.button == receiver) pass_to(row);
}

}  // namespace brusbo
