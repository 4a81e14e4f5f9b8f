#pragma once

#include <QLineEdit>

#include "platform/element.h"

namespace brusbo {

/// A text box for a name of at most `most_characters` characters, counted in code points, however
/// many bytes they take. What is typed or pasted beyond is left out.
class NameBox : public QLineEdit {
    Q_OBJECT

   public:
    static constexpr int most_characters = 10;

    NameBox(QWidget* parent, const ElementLook& look, const char* text);
};

}  // namespace brusbo
