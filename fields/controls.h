#pragma once

#include "fields/control.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::fields {

class Label : public Control {
  public:
    Label(Form& form, std::string name, std::string caption = "");
    std::string ValueText() const override { return Caption; }
    Property<std::string> Caption;
};

class TextBox : public Control {
  public:
    TextBox(Form& form, std::string name, std::string text = "");
    std::string ValueText() const override { return Text; }
    Property<std::string> Text;
    Property<Color> BackColor;
};

// 0 empty, 1 checked, 2 grey; only a tri-state box takes 2 from a user.
class CheckBox : public Control {
  public:
    CheckBox(Form& form, std::string name, std::string caption, int value = 0,
             bool triState = false);
    std::string ValueText() const override { return std::to_string(Value.Get()); }
    bool IsTriState() const { return triState_; }
    Property<int> Value;
    Property<std::string> Caption;

  private:
    bool triState_;
};

// One choice of an array of which one is set.
class OptionButton : public Control {
  public:
    OptionButton(Form& form, std::string name, int index, std::string caption, bool value);
    std::string ValueText() const override { return Value ? "1" : "0"; }
    Property<bool> Value;
    Property<std::string> Caption;
};

// The array itself. Choosing one entry clears the others.
class OptionGroup {
  public:
    OptionGroup(Form& form, const std::string& name, const std::vector<std::string>& captions,
                int chosen = 0);
    OptionButton& operator[](int index) { return *buttons_[static_cast<std::size_t>(index)]; }
    const OptionButton& operator[](int index) const {
        return *buttons_[static_cast<std::size_t>(index)];
    }
    int Count() const { return static_cast<int>(buttons_.size()); }
    int Chosen() const; // -1 when none is set
    void Choose(int index);
    void SetEnabled(bool enabled);

  private:
    std::vector<std::unique_ptr<OptionButton>> buttons_;
};

struct ComboItem {
    std::string text;
    int data = 0;
    bool operator==(const ComboItem&) const = default;
};

class ComboBox : public Control {
  public:
    ComboBox(Form& form, std::string name, bool editable = true);
    std::string ValueText() const override { return Text; }
    bool IsEditable() const { return editable_; }
    void AddItem(std::string text, int data = 0);
    void InsertItem(std::size_t position, std::string text, int data = 0);
    void RemoveItem(std::size_t position);
    void ClearItems();
    const std::vector<ComboItem>& Items() const { return items_; }
    // The item data of the entry whose text stands in the box; 0 when none does.
    int ChosenData() const;
    Property<std::string> Text;

  private:
    bool editable_;
    std::vector<ComboItem> items_;
};

class CommandButton : public Control {
  public:
    CommandButton(Form& form, std::string name, std::string caption, bool visible = true);
    std::string ValueText() const override { return Caption; }
    Property<std::string> Caption;
};

class MenuEntry : public Control {
  public:
    MenuEntry(Form& form, std::string name, std::string caption, int index = -1);
    std::string ValueText() const override { return Caption; }
    Property<std::string> Caption;
    Property<bool> Checked;
};

class Frame : public Control {
  public:
    Frame(Form& form, std::string name, std::string caption = "", bool visible = true);
    std::string ValueText() const override { return Caption; }
    Property<std::string> Caption;
};

// The date half or the time half of a moment, as "yyyy/mm/dd" or "hh:mm:ss".
class DatePicker : public Control {
  public:
    DatePicker(Form& form, std::string name, bool isTime);
    std::string ValueText() const override { return Text; }
    bool IsTime() const { return isTime_; }
    Property<std::string> Text;

  private:
    bool isTime_;
};

class ProgressBar : public Control {
  public:
    ProgressBar(Form& form, std::string name);
    std::string ValueText() const override { return std::to_string(Value.Get()); }
    Property<long long> Value;
    Property<long long> Max;
};

enum class SortDirection { kAscending, kDescending };

// The head of a list of rows: how it is sorted and which columns show. The rows are kept elsewhere.
class ListView : public Control {
  public:
    ListView(Form& form, std::string name);
    Property<bool> Sorted;
    Property<int> SortKey; // column index, 0 the name
    Property<SortDirection> SortOrder;
    Property<std::string> Tip;
};

// A list of lines. With `multiple`, any number of them is selected at once, each click turning one.
class ListBox : public Control {
  public:
    ListBox(Form& form, std::string name, bool multiple = false);
    // The selected lines, each ended by CR LF.
    std::string ValueText() const override;
    bool IsMultiple() const { return multiple_; }
    // Replaces the lines; those of the same text stay selected.
    void SetItems(std::vector<std::string> items);
    void AddItem(std::string item);
    void ClearItems() { SetItems({}); }
    void Select(std::size_t position, bool selected);
    void SelectNone();
    bool IsSelected(std::size_t position) const { return selected_[position]; }
    const std::vector<std::string>& Items() const { return items_; }
    Property<std::string> Header;

  private:
    bool multiple_;
    std::vector<std::string> items_;
    std::vector<bool> selected_;
};

} // namespace tarvix::fields
