#pragma once

#include <QWidget>

#include "engine/screen.h"
#include "platform/pictures.h"

namespace brusbo {

/// The picture that stands at a place of a store; an index outside the store is a programming
/// error.
Picture picture_of(StorePicture picture);

/// The hidden container `Grafik` with an element for every picture of every store.
class PictureStores : public QWidget {
   public:
    explicit PictureStores(QWidget* board);
};

}  // namespace brusbo
