#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QColor>

#include "platform/element.h"
#include "platform/fonts.h"
#include "platform/input_gate.h"

namespace brusbo {

/// Runs a handler for each click on a button, as an action of its own.
void on_click(QAbstractButton& button, InputGate::Function handler);

/// Whether an element has the keyboard focus and is to be marked.
bool shows_focus(const QWidget& element);

/// The mark of the keyboard focus, so many pixels inside the box; opacity 0..255.
void paint_focus(QPainter& painter, const QRect& box, int inside, int opacity = 150);

/// A flat label with a border that is clicked like a button.
class LabelButton : public QAbstractButton {
   public:
    LabelButton(QWidget* parent, const ElementLook& look, const char* text, QColor face);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor face_;
};

/// A command button, pressed by mouse, blank or return. Its face is coloured and rounded, or, of no
/// valid colour, that of the system's standard button.
class CommandButton : public QAbstractButton {
   public:
    CommandButton(QWidget* parent, const ElementLook& look, const char* text, QColor face,
                  Font text_font = Font::regular);

    void set_face(QColor face);

   protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

   private:
    QColor face_;
};

/// An option button that is a coloured field; pressed in while chosen.
class OptionButton : public QAbstractButton {
   public:
    OptionButton(QWidget* parent, const ElementLook& look, QColor face);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor face_;
};

/// A check box that fills its place.
class CheckBox : public QCheckBox {
   public:
    CheckBox(QWidget* parent, const ElementLook& look);

   protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
};

}  // namespace brusbo
