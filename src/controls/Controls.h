#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/KeyPress.h"

/// The small control models: what they hold, and the events that their peers raise for a person's actions.
namespace pellmark {

class Label : public Control {
  public:
    Label(Container& parent, std::string name, std::string caption = {})
        : Control(Kind::Label, &parent, std::move(name)) {
        setCaption(std::move(caption));
        setTabStop(false);
    }
};

class Button : public Control {
  public:
    Button(Container& parent, std::string name, std::string caption = {})
        : Control(Kind::Button, &parent, std::move(name)) {
        setCaption(std::move(caption));
    }

    /// What a person's click, access key, Enter on a default button or Escape on a cancel button does.
    /// A disabled or hidden button does nothing.
    void click() {
        if (enabled() && visible()) clicked.raise();
    }

    Event<> clicked;
};

/// A captioned box around other controls; children are placed inside its client area, caption included.
class Frame : public Container {
  public:
    Frame(Container& parent, std::string name, std::string caption = {})
        : Container(Kind::Frame, &parent, std::move(name)) {
        setCaption(std::move(caption));
        setTabStop(false);
    }

    /// False for a frame that only groups: no border and no caption are drawn.
    bool bordered() const { return bordered_; }
    void setBordered(bool bordered) { bordered_ = bordered; }

  private:
    bool bordered_ = true;
};

class TextBox : public Control {
  public:
    TextBox(Container& parent, std::string name) : Control(Kind::TextBox, &parent, std::move(name)) {}

    const std::string& text() const { return text_; }
    void setText(std::string text) {
        if (text == text_) return;
        text_ = std::move(text);
        textChanged.raise();
    }

    /// Several lines with a vertical scroll bar; Enter then starts a new line.
    bool multiLine() const { return multiLine_; }
    void setMultiLine(bool multiLine) { multiLine_ = multiLine; }

    /// Selects all of the text, so that the next letter takes its place.
    void selectText() { selectionRequested.raise(); }

    /// Raised for every change, by code or by typing.
    Event<> textChanged;
    /// A key on its way to a box of one line; Enter comes here only where no button of the form takes it.
    Event<KeyPress&> keyPressed;
    Event<> selectionRequested;  ///< for the peer

  private:
    std::string text_;
    bool multiLine_ = false;
};

/// A drop-down list to choose from (no free text). Every entry carries a number, its item data, and may
/// carry an id where a number is not enough.
class ComboBox : public Control {
  public:
    struct Item {
        std::string text;
        int itemData = 0;
        std::string id;
    };
    static constexpr int kNone = -1;

    ComboBox(Container& parent, std::string name) : Control(Kind::ComboBox, &parent, std::move(name)) {}

    const std::vector<Item>& items() const { return items_; }
    void addItem(Item item) {
        items_.push_back(std::move(item));
        itemsChanged.raise();
    }
    void setItems(std::vector<Item> items) {
        items_ = std::move(items);
        index_ = kNone;
        itemsChanged.raise();
        indexChanged.raise();
    }

    /// Position of the chosen entry, kNone when there is none; an index out of range chooses none.
    int index() const { return index_; }
    void setIndex(int index) {
        if (index < 0 || index >= static_cast<int>(items_.size())) index = kNone;
        if (index == index_) return;
        index_ = index;
        indexChanged.raise();
    }
    const Item* selected() const {
        return index_ == kNone ? nullptr : &items_[static_cast<std::size_t>(index_)];
    }

    /// A person's choice: sets the index and raises clicked, also when it was chosen already.
    void choose(int index) {
        setIndex(index);
        clicked.raise();
    }

    Event<> itemsChanged;
    Event<> indexChanged;
    Event<> clicked;

  private:
    std::vector<Item> items_;
    int index_ = kNone;
};

/// One page of a tab strip.
class TabPage : public Container {
  public:
    TabPage(class TabStrip& strip, std::string name);
};

/// Tabs over pages, of which one is shown.
class TabStrip : public Container {
  public:
    TabStrip(Container& parent, std::string name) : Container(Kind::TabStrip, &parent, std::move(name)) {}

    const std::vector<TabPage*>& pages() const { return pages_; }
    int index() const { return index_; }
    /// Shows another page without telling anybody that a person clicked.
    void setIndex(int index) {
        if (index == index_) return;
        index_ = index;
        indexChanged.raise();
    }
    /// A person's click on a tab: shows its page and raises clicked with its index.
    void click(int index) {
        if (index >= 0 && index < static_cast<int>(pages_.size())) setIndex(index);
        clicked.raise(index);
    }

    /// The pages take what the tabs leave; the peer, which knows the height of the tabs, gives it to arrange.
    void arrange(Size page) override {
        for (TabPage* each : pages_) {
            each->setBounds({each->bounds().left, each->bounds().top, page.width, page.height});
            each->arrange(page);
        }
    }

    Event<> indexChanged;
    Event<int> clicked;

  private:
    friend class TabPage;
    std::vector<TabPage*> pages_;
    int index_ = 0;
};

inline TabPage::TabPage(TabStrip& strip, std::string name)
    : Container(Kind::TabPage, &strip, std::move(name)) {
    setTabStop(false);
    strip.pages_.push_back(this);
}

}  // namespace pellmark
