#pragma once

#include <QLineEdit>

#include "platform/element.h"
#include "platform/fonts.h"

namespace brusbo {

/// A text box for a name of at most `most_characters` characters, counted in code points, however
/// many bytes they take. What is typed or pasted beyond is left out; line breaks and other control
/// characters become blanks.
class NameBox : public QLineEdit {
   public:
    static constexpr int most_characters = 10;

    NameBox(QWidget* parent, const ElementLook& look, const QString& text);
};

}  // namespace brusbo
