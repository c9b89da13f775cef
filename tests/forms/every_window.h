#pragma once

#include "tests/forms/window_fixture.h"

#include <QImage>

#include <functional>
#include <string>

namespace tarvix::forms {

// A program over a collection as people have them, on a machine with native paths, and a way to see
// each of its windows once.
class EveryWindow : public WindowFixture {
  protected:
    EveryWindow();
    ~EveryWindow() override;
    void SetUp() override;

    // Opens window after window, full of things to show, and calls `look` with each.
    using Look = std::function<void(QWidget& window, const std::string& name)>;
    void Each(const Look& look);
    virtual bool IsDarkShade() const = 0;

  private:
    void FillDisk();
    void SeeSearch(const Look& look);
    void SeeDates(const Look& look);
    void SeeActions(const Look& look);
    void SeeForms(const Look& look);
    void SeeOptions(const Look& look);
    void SeeQuestions(const Look& look);
    void SeeHelp(const Look& look);
    void SeeMenus(const Look& look);
    void SeeContextMenu(const Look& look);
    void SeeOutcome(const Look& look);
    void SeeLegend(const Look& look);
    void FillOutcomes();
    void FillPutBack();
    void LookAtModal(const Look& look, const std::string& name);
    void FillForms();
};

} // namespace tarvix::forms
