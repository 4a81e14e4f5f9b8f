#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QColor>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <QWidget>
#include <optional>

#include "platform/layout.h"
#include "platform/pictures.h"

// The elements that the windows are made of. Every one is a child widget whose objectName is its
// element name, keeps mouse presses to itself unless said otherwise, and speaks Swedish to the
// accessibility interface.
namespace brusbo {

/// What all elements have in common.
struct ElementLook {
    const char* name;  ///< objectName, UTF-8
    Place place;
    const char* accessible = "";  ///< accessible name in Swedish
    bool visible = true;
};

/// Gives a widget its name, place, accessible name and visibility.
void set_up(QWidget& widget, const ElementLook& look);

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

/// A transparent label. Its text is always plain; it wraps or shrinks to stay inside the box.
class Label : public QLabel {
    Q_OBJECT

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

    /// Replaces the text; a line that is too long for the box is set in a smaller size, and the
    /// longest ones are cut short with an ellipsis at their smallest. text() gives all of it.
    void set_text(const QString& text);
    void set_colour(QColor colour);

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

   private:
    void fit();

    Look look_;
    QString accessible_;  ///< while there is no text
    QString shown_;
};

/// A flat label with a border that is clicked like a button.
class LabelButton : public QAbstractButton {
    Q_OBJECT

   public:
    LabelButton(QWidget* parent, const ElementLook& look, const char* text, QColor face);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor face_;
};

/// A command button with a coloured face, pressed by mouse, blank or return.
class CommandButton : public QAbstractButton {
    Q_OBJECT

   public:
    CommandButton(QWidget* parent, const ElementLook& look, const char* text, QColor face,
                  Font text_font = Font::regular);

    QColor face() const { return face_; }
    void set_face(QColor face);

   protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

   private:
    QColor face_;
};

/// An option button that is a coloured field; pressed in while chosen.
class OptionButton : public QAbstractButton {
    Q_OBJECT

   public:
    OptionButton(QWidget* parent, const ElementLook& look, QColor face);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor face_;
};

/// A check box that fills its place.
class CheckBox : public QCheckBox {
    Q_OBJECT

   public:
    CheckBox(QWidget* parent, const ElementLook& look);

   protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
};

/// A text box for a name of at most `most_characters` characters, counted as a reader counts
/// code points, however many bytes they take. What is typed or pasted beyond is left out.
class NameBox : public QLineEdit {
    Q_OBJECT

   public:
    static constexpr int most_characters = 10;

    NameBox(QWidget* parent, const ElementLook& look, const char* text);
};

/// A circle as large as its frame allows, filled with one colour; the mouse goes through it.
class Circle : public QWidget {
    Q_OBJECT

   public:
    Circle(QWidget* parent, const ElementLook& look, QColor colour);

    QColor colour() const { return colour_; }
    void set_colour(QColor colour);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor colour_;
};

/// A straight line that fills its place with one colour.
class Line : public QWidget {
    Q_OBJECT

   public:
    Line(QWidget* parent, const ElementLook& look, QColor colour);

    QColor colour() const { return colour_; }
    void set_colour(QColor colour);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor colour_;
};

}  // namespace brusbo
