#pragma once

#include <QAbstractButton>
#include <optional>
#include <vector>

#include "platform/element.h"
#include "platform/pictures.h"

namespace brusbo {

/// What an element that shows a picture is besides a widget.
class PictureHolder {
   public:
    PictureHolder(QWidget& element, std::optional<Picture> picture)
        : element_(element), picture_(picture) {}
    virtual ~PictureHolder() = default;

    void set_picture(Picture picture);

   protected:
    /// Paints the picture at the element's top left corner; without one, fills with `ground`.
    void paint(QColor ground);

   private:
    QWidget& element_;
    std::optional<Picture> picture_;
};

/// A picture that is only looked at. Without a picture nothing is seen.
class Image : public QWidget, public PictureHolder {
   public:
    Image(QWidget* parent, const ElementLook& look, std::optional<Picture> picture = {});

   protected:
    void paintEvent(QPaintEvent*) override { paint(Qt::transparent); }
};

/// The separator lines `imgLinje` of a window, by their index; left and top in pixels.
std::vector<Image*> separators(QWidget* parent, const std::vector<QPoint>& places);

/// A picture that can be clicked; black while it has none. The keyboard focus comes to it only by
/// setFocus().
class PictureButton : public QAbstractButton, public PictureHolder {
   public:
    PictureButton(QWidget* parent, const ElementLook& look, std::optional<Picture> picture = {});

   protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace brusbo
