#pragma once

#include <QLabel>

#include "platform/element.h"
#include "platform/fonts.h"

namespace brusbo {

/// A transparent label. Its text is always plain; it wraps or shrinks to stay inside the box.
/// Bright letters have a dark halo.
class Label : public QLabel {
   public:
    struct Look {
        Font font = Font::regular;
        QRgb colour = 0xFF000000;
        Qt::Alignment alignment = Qt::AlignLeft;
        bool wraps = false;
        /// Pixels that a single line may take; 0 means the width of the box.
        int text_width = 0;
    };

    Label(QWidget* parent, const ElementLook& element, const Look& look, const char* text = "");

    /// Replaces the text; one that is too long for the box is set in a smaller size, and the
    /// longest lines are cut short with an ellipsis at their smallest. text() gives all of it.
    void set_text(const QString& text);
    void set_colour(QColor colour);

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

   private:
    class Halo;

    void paint_text(QPainter& painter, QColor colour, QPoint aside) const;

    Look look_;
    QString accessible_;  ///< while there is no text
    QString shown_;
};

}  // namespace brusbo
