#pragma once

#include "fields/controls.h"
#include "forms/event_gate.h"
#include "forms/field_showers.h"

#include <QObject>
#include <QString>

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class QAction;

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

// Joins the fields of one form to the widgets and actions below `root` that bear their names: shows
// the fields, and hands on what the user does. It decides nothing.
class Binder : public QObject {
  public:
    // Joins the fields to what lies below the root and shows them. All must live as long.
    Binder(session::Session& session, EventGate& gate, fields::Form& form, QWidget& root);

    // Why a control can't be used although its field allows it, for its tip; empty when it can.
    // Asked whenever the control is shown.
    using WhyNot = std::function<QString(const fields::Control&)>;
    void UseWhyNot(WhyNot whyNot);

    // Shows the fields that changed.
    void Flush();
    // Shows all of them, changed or not.
    void ShowAll();
    // Shows those of these names.
    void ShowThose(std::span<const std::string_view> names);
    // Hands on the texts that were entered while a routine ran.
    void ApplyPending();

    // What the user did: a click, or a value entered. While a routine runs a click is lost, unless
    // the control may interrupt it, and a value waits.
    void Click(fields::Control& control);
    void Set(fields::Control& control, const QString& value);
    // Whether something happens when the control is clicked.
    bool HasRoutine(const fields::Control& control, std::string_view event = "Click") const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BindObject(fields::Control& control, QObject& object);
    Shower BindButton(fields::Control& control, QAbstractButton& button);
    Shower BindCombo(fields::ComboBox& field, QComboBox& box);
    Shower BindText(fields::TextBox& field, QLineEdit& edit);
    Shower BindList(fields::ListBox& field, FieldListBox& list);
    Shower BindPicker(fields::DatePicker& field, QDateTimeEdit& picker);
    Shower BindAction(fields::Control& control, QAction& action);
    void Show(fields::Control& control);
    bool IsChosen(const fields::Control& control) const;
    void TakeFocus();
    void TakeNativePaths(fields::Control& control);
    PathText PathTextOf(const fields::Control& control) const;
    void Leave(fields::Control& control);
    template <class Shown>
    void Withhold(const fields::Control& control, Shown& shown) const;

    session::Session& session_;
    EventGate& gate_;
    fields::Form& form_;
    QWidget& root_;
    WhyNot whyNot_;
    bool byArrow_ = false; // what is clicked just now is chosen by an arrow key
    std::unordered_map<const fields::Control*, std::vector<Shower>> showers_;
    std::unordered_map<const QObject*, fields::Control*> bound_;
    std::map<fields::Control*, QString> pending_; // texts entered while a routine ran
};

} // namespace tarvix::forms
