#pragma once

#include "fields/control.h"
#include "text/dates.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::fields {

// A control that bears words of its own.
class CaptionedControl : public Control {
  public:
    std::string CaptionText() const override { return Caption; }
    std::string ValueText() const override { return Caption; }
    Property<std::string> Caption;

  protected:
    CaptionedControl(Form& form, std::string name, ControlKind kind, std::string caption,
                     int index = -1);
};

// A copy of it bears the same words.
class Label : public CaptionedControl {
  public:
    Label(Form& form, std::string name, std::string caption = "");

  protected:
    void CopyValue(const Control& other) override;
};

// A moment, or none, shown as "yyyy/mm/dd hh:mm:ss"; the caption is made from it.
class DateLabel : public Label {
  public:
    DateLabel(Form& form, std::string name) : Label(form, std::move(name)) {}
    const std::optional<text::DateTime>& Date() const { return date_; }
    void SetDate(const std::optional<text::DateTime>& date);

  protected:
    void CopyValue(const Control& other) override;

  private:
    std::optional<text::DateTime> date_;
};

// Takes any text.
class TextBox : public Control {
  public:
    TextBox(Form& form, std::string name, std::string text = "");
    std::string ValueText() const override { return Text; }
    EnterResult Enter(std::string_view text) override;
    Property<std::string> Text;
    Property<Color> BackColor;

  protected:
    void CopyValue(const Control& other) override;
};

// 0 empty, 1 checked, 2 grey; only a tri-state box takes 2 from a user. A press turns a two-state
// box; a tri-state box is turned by its own routine.
class CheckBox : public CaptionedControl {
  public:
    CheckBox(Form& form, std::string name, std::string caption, int value = 0,
             bool triState = false, int index = -1);
    std::string ValueText() const override { return std::to_string(Value.Get()); }
    EnterResult Enter(std::string_view text) override;
    bool Press() override;
    bool IsTriState() const { return triState_; }
    Property<int> Value;

  protected:
    void CopyValue(const Control& other) override;

  private:
    bool triState_;
};

class OptionGroup;

// One choice of an array of which one is set. It takes 1 or "True".
class OptionButton : public CaptionedControl {
  public:
    OptionButton(Form& form, OptionGroup& group, std::string name, int index, std::string caption,
                 bool value);
    std::string ValueText() const override { return Value ? "1" : "0"; }
    EnterResult Enter(std::string_view text) override;
    bool Press() override;
    Property<bool> Value;

  protected:
    void CopyValue(const Control& other) override;

  private:
    OptionGroup& group_;
};

// The array itself. Choosing one entry clears the others. An index lies below Count.
class OptionGroup {
  public:
    OptionGroup(Form& form, const std::string& name, const std::vector<std::string>& captions,
                int chosen = 0);
    OptionGroup(const OptionGroup&) = delete;
    OptionGroup& operator=(const OptionGroup&) = delete;
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

// A text with a list to choose it from. One that isn't editable takes only the texts of its list,
// without regard to case. Positions count from 0 and must exist; one is inserted before its
// position, which may be the end.
class ComboBox : public Control {
  public:
    ComboBox(Form& form, std::string name, bool editable = true);
    std::string ValueText() const override { return Text; }
    EnterResult Enter(std::string_view text) override;
    bool IsEditable() const { return editable_; }
    void AddItem(std::string text, int data = 0);
    void InsertItem(std::size_t position, std::string text, int data = 0);
    void RemoveItem(std::size_t position);
    void ClearItems();
    const std::vector<ComboItem>& Items() const { return items_; }
    // The item data of the entry whose text stands in the box; 0 when none does.
    int ChosenData() const;
    Property<std::string> Text;

  protected:
    void CopyValue(const Control& other) override;

  private:
    bool editable_;
    std::vector<ComboItem> items_;
};

class CommandButton : public CaptionedControl {
  public:
    CommandButton(Form& form, std::string name, std::string caption, bool visible = true);
};

class MenuEntry : public CaptionedControl {
  public:
    MenuEntry(Form& form, std::string name, std::string caption, int index = -1);
    Property<bool> Checked;
};

class Frame : public CaptionedControl {
  public:
    Frame(Form& form, std::string name, std::string caption = "", bool visible = true);
};

// The date half or the time half of a moment, as "yyyy/mm/dd" or "hh:mm:ss". It takes any text
// that is a date or a time.
class DatePicker : public Control {
  public:
    DatePicker(Form& form, std::string name, bool isTime);
    std::string ValueText() const override { return Text; }
    EnterResult Enter(std::string_view text) override;
    bool IsTime() const { return isTime_; }
    Property<std::string> Text;

  protected:
    void CopyValue(const Control& other) override;

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

// Raises its Timer event every Interval milliseconds as long as it is enabled, which it isn't at
// first; a front sees to that.
class Timer : public Control {
  public:
    Timer(Form& form, std::string name);
    Property<int> Interval;
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
// It takes the text of a line, without regard to case. Positions count from 0 and must exist.
class ListBox : public Control {
  public:
    ListBox(Form& form, std::string name, bool multiple = false);
    // The selected lines, each ended by CR LF.
    std::string ValueText() const override;
    EnterResult Enter(std::string_view text) override;
    bool IsMultiple() const { return multiple_; }
    // Replaces the lines; those of the same text stay selected.
    void SetItems(std::vector<std::string> items);
    // Selecting a line of a list that isn't multiple unselects the others.
    void Select(std::size_t position, bool selected);
    void SelectNone();
    bool IsSelected(std::size_t position) const { return selected_[position]; }
    const std::vector<std::string>& Items() const { return items_; }
    Property<std::string> Header;

  protected:
    void CopyValue(const Control& other) override;

  private:
    bool multiple_;
    std::vector<std::string> items_;
    std::vector<bool> selected_;
};

} // namespace tarvix::fields
