#pragma once

#include <QObject>

#include "engine/screen.h"
#include "platform/picture_elements.h"

namespace brusbo {

/// The title bar's picture buttons, which light up under the mouse. A lit button holds the capture:
/// every movement of the mouse over any window of the program is then its own, until one of them
/// lies outside it. The capture is the program's own; other programs notice nothing.
class PictureButtons : public QObject {
   public:
    PictureButtons(PictureButton& mnuArkiv, PictureButton& mnuOm, PictureButton& butMini,
                   PictureButton& butAvsluta);

    /// A movement of the mouse that belongs to button `NAME1`, whose pictures are in store `NAME2`;
    /// `X` and `Y` are pixels from the button's top-left corner, device pixels as fractions, and
    /// may lie outside it.
    void MouseOver(PictureButton& NAME1, Store NAME2, float X, float Y);

    /// Releases the capture; the button that held it gets its normal picture.
    void release_capture();

    /// Releases the capture and gives all four buttons their normal pictures.
    void Rel();

   protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

   private:
    struct Row {
        PictureButton* button;
        Store store;
    };

    void mouse_moved(const Row& row, QPointF global_place);

    Row rows_[4];
    const Row* capture_ = nullptr;
};

}  // namespace brusbo
