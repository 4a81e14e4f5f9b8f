#pragma once

#include <QAbstractButton>
#include <optional>

#include "platform/element.h"
#include "platform/pictures.h"

namespace brusbo {

/// A picture that is only looked at. Without a picture it paints nothing.
class Image : public QWidget {
    Q_OBJECT

   public:
    Image(QWidget* parent, const ElementLook& look, std::optional<Picture> picture = {});

    std::optional<Picture> picture() const { return picture_; }
    void set_picture(Picture picture);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    std::optional<Picture> picture_;
};

/// A picture that can be clicked; black while it has none.
class PictureButton : public QAbstractButton {
    Q_OBJECT

   public:
    PictureButton(QWidget* parent, const ElementLook& look, std::optional<Picture> picture = {});

    std::optional<Picture> picture() const { return picture_; }
    void set_picture(Picture picture);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    std::optional<Picture> picture_;
};

}  // namespace brusbo
