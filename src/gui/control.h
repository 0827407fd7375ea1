#pragma once
// The plain controls of the form, each a thin handle on one Qt widget, offering the
// operations that the wizard's logic needs and nothing more. The widgets belong to their
// parent; a handle never deletes one.

#include <QString>
#include <functional>
#include <initializer_list>

#include "gui/look.h"

class QWidget;
class QLabel;
class QGroupBox;
class QLineEdit;
class QComboBox;
class QRadioButton;
class QCheckBox;
class QAbstractButton;
class QListWidget;
class QKeySequence;

namespace gui {

namespace detail {
class FocusReturn;
}
namespace detail {
class MultiLineBox;
}

using Handler = std::function<void()>;
using KeyHandler = std::function<void(int keyCode)>;

// Common ground of every control: its widget, name, place, visibility, enabled state.
class Control {
  public:
    QWidget* widget() const { return widget_; }
    QString Name() const;

    bool Visible() const;  // its own visible state, whatever its container does
    void setVisible(bool visible);
    bool Enabled() const;
    void setEnabled(bool enabled);
    int Left() const;  // twips, relative to the container
    int Top() const;
    void setLeft(int twips);
    void setTop(int twips);
    void SetFocus();

  protected:
    void adopt(QWidget* widget, Control& parent, const QString& name, const Look& look);
    QWidget* widget_ = nullptr;
};

// The top-level window. Closing asks the query-unload handler, which may refuse.
class Form : public Control {
  public:
    Form();
    ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    void create(const QString& name, const Look& look, const QString& iconDrawing);
    QString Caption() const;
    void onQueryUnload(std::function<void(int& cancel, int& unloadMode)> handler);
    void Show();  // where the window manager puts it: centred on the screen it starts on
    // A local file dropped anywhere on the window; its path goes to `handler`.
    void onFileDrop(std::function<void(const QString&)> handler);
    // Runs `handler` when the keys are pressed anywhere in the window, whatever has the
    // focus; the keys type nothing into the control that has it.
    void onShortcut(const QKeySequence& keys, Handler handler);
    // Says the text to a screen reader, wherever the focus is.
    void Announce(const QString& text);
};

class Button;

// A container with a title and a free text tag.
class Frame : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
    QString Caption() const;
    // An input inside with no label of its own is named by the caption, and by `place` after
    // it when one is given: "to, row 1".
    void setCaption(const QString& caption, const QString& place = {});
    QString Tag() const { return tag_; }
    void setTag(const QString& tag) { tag_ = tag; }
    // Hiding a frame that holds the focus gives the focus back to where it came from.
    void setVisible(bool visible);
    // While the frame shows, Return presses `defaultButton` and Escape `cancelButton`, with
    // the focus anywhere in the frame's window.
    void setDialogButtons(Button& defaultButton, Button& cancelButton);
    // While the frame shows, Escape hides it, with the focus anywhere in the frame's window.
    void HideOnEscape();
    // Gives the focus to the first control inside that takes input, in tab order: a text
    // box, a list, a grid, an option or a check box that is enabled and not hidden.
    // False when there is none.
    bool FocusFirstInput();

  private:
    QString tag_;
    detail::FocusReturn* focusReturn_ = nullptr;  // made when the frame first shows
};

class Label : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
    QString Caption() const;
    void setCaption(const QString& caption);
    // The input beside the label, which a screen reader then names by the caption.
    void setBuddy(Control& input);
    // The input that the label tells more about: its caption is the input's description.
    void setDescribes(Control& input);
    // The label names these as the title of a group (a screen reader hears it with each).
    void setLabelFor(std::initializer_list<Control*> controls);
    // A changed caption is said to a screen reader, after `lead`, once per change however
    // often it is set in one go.
    void AnnounceChanges(const QString& lead = {});

  private:
    QString lead_;
    QString spoken_;
    bool announced_ = false;
    bool pending_ = false;
};

// Single- or multi-line text box. The multi-line box holds CR LF between lines, as the
// file wants it, and keeps every other character as it was typed or pasted.
class TextBox : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
    QString Text() const;
    void setText(const QString& text);
    QString Tag() const { return tag_; }
    void setTag(const QString& tag) { tag_ = tag; }
    void setSelStart(int start);
    void setSelLength(int length);
    void onKeyPress(KeyHandler handler);  // keys that give a character; Enter is 13

  private:
    QLineEdit* line_ = nullptr;
    detail::MultiLineBox* multi_ = nullptr;
    QString tag_;
};

// Editable drop-down. Unlike a plain QComboBox it completes nothing, inserts nothing on
// Enter and selects nothing by itself: ListIndex stays -1 until the user picks an item.
class ComboBox : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
    QString Text() const;
    void setText(const QString& text);
    void setSelText(const QString& text);  // replaces the selection, or inserts at the cursor
    void Clear();                          // list and text
    void AddItem(const QString& item);
    int ListCount() const;
    int ListIndex() const { return listIndex_; }
    QString Tag() const { return tag_; }
    void setTag(const QString& tag) { tag_ = tag; }
    void onKeyPress(KeyHandler handler);

  private:
    QComboBox* box_ = nullptr;
    int listIndex_ = -1;
    QString tag_;
};

class OptionButton : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
    bool Value() const;
    void setValue(bool selected);
};

class CheckBox : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
    int Value() const;  // 0 clear, 1 ticked
    void setValue(int value);
    void onClick(Handler handler);  // after the value has changed, by the user only
};

// A push button with an optional picture above its caption.
class Button : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
    void onClick(Handler handler);
    void Click();  // as the user pressing it, when enabled
};

class ListBox : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
};

// A still picture (Look::picture), no logic.
class Image : public Control {
  public:
    void create(Control& parent, const QString& name, const Look& look);
};

// A straight line between two points of its container, in twips.
class Line : public Control {
  public:
    void create(Control& parent, const QString& name, int x1, int y1, int x2, int y2);
};

// Sets the order in which Tab visits the controls.
void TabOrder(std::initializer_list<Control*> controls);

}  // namespace gui
