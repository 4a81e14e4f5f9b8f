#include "platform/name_box.h"

#include <QValidator>
#include <algorithm>

namespace brusbo {

namespace {

bool breaks_line(QChar character) {
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

/// Keeps a name on one line, and within its length by leaving out the surplus just before the
/// cursor, which is what was inserted last.
class NameLength : public QValidator {
   public:
    using QValidator::QValidator;

    State validate(QString& input, int& cursor) const override {
        for (QChar& character : input)
            if (breaks_line(character)) character = QLatin1Char(' ');
        auto characters = input.toUcs4();
        const auto surplus = characters.size() - NameBox::most_characters;
        if (surplus > 0) {
            const auto before = QStringView(input).left(cursor).toUcs4().size();
            const auto first = std::max<decltype(surplus)>(before - surplus, 0);
            characters.remove(first, surplus);
            input = QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()),
                                      characters.size());
            cursor = static_cast<int>(
                QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), first)
                    .size());
        }
        return Acceptable;
    }
};

}  // namespace

NameBox::NameBox(QWidget* parent, const ElementLook& look, const QString& text)
    : QLineEdit(parent) {
    setFont(window_font(Font::regular));
    setText(text);
    setValidator(new NameLength(this));
    // The toolkit's own menu would speak English.
    setContextMenuPolicy(Qt::NoContextMenu);
    set_up(*this, look);
}

}  // namespace brusbo
