#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::fields {

class Control;

enum class WindowState { kNormal, kMinimized, kMaximized };

// A colour in blue-green-red order, as controls and rows keep it.
using Color = std::uint32_t;
constexpr Color kBlack = 0;
constexpr Color kRed = 255;
constexpr Color kGreen = 65280;
constexpr Color kBlue = 0xFF0000;

// A record of controls with a name; no drawing. Whoever shows it asks for the controls that
// changed since it last asked.
class Form {
  public:
    explicit Form(std::string name) : name_(std::move(name)) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    const std::string& Name() const { return name_; }
    const std::vector<Control*>& Controls() const { return controls_; }
    // By name, array entries as "optTo(1)"; without regard to case. Null when there is none.
    Control* Find(std::string_view name) const;
    // The buttons that close the form: its Cancel first, then its OK. Empty when it has neither.
    std::vector<Control*> WaysOut() const;
    // Takes over what the control of the same name holds in `other`, a form of the same class.
    void CopyFrom(const Form& other);

    // Shown until Hide; a modal prompt returns to its caller then.
    bool IsShown() const { return shown_; }
    void Show() { shown_ = true; }
    void Hide() { shown_ = false; }

    // The controls that changed since the last call, each once.
    std::vector<Control*> TakeChanged();

    std::string Caption;
    int Width = 0; // twips, 15 of them a pixel
    int Height = 0;
    WindowState State = WindowState::kNormal;
    Control* Focus = nullptr;

  private:
    friend class Control;
    friend void NoteChange(Control& control);
    std::string name_;
    std::vector<Control*> controls_;
    std::vector<Control*> changed_;
    bool shown_ = false;
};

} // namespace tarvix::fields
