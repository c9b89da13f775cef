#pragma once

#include "session/remembered/history_rows.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tarvix::platform {
class TextStream;
}

namespace tarvix::session {

struct Session;

// What is particular to one of the history files.
struct HistoryKind {
    std::string_view openRoutine;
    std::string_view saveRoutine;
    std::string_view moduleName;
    std::string_view name;     // as people are told of it
    std::string path;          // drive path
    std::size_t emptyUpTo = 4; // a file of no more bytes is not read
    // Whether an entry of the file stands for something that the list has anyway.
    std::function<bool(std::string_view text, bool isSaving)> isKnown;
};

// One history file and the rows that it keeps.
class HistoryFile {
  public:
    HistoryFile(Session& session, HistoryKind kind, HistoryRows rows)
        : session_(session), kind_(std::move(kind)), rows_(rows) {}

    HistoryRows& Rows() { return rows_; }
    // Reads the file into the rows; a missing one is made, a damaged one asked about.
    void Open();
    // Takes in what the file has by now, then replaces it. Nothing is asked about its content. One
    // that could not be read, at the start or now, is left as it is.
    void Save();

  private:
    enum class Ending { kDone, kDamaged, kUnread };

    template <class Statement>
    auto Try(std::string_view routine, Statement&& statement);
    std::string_view Routine() const { return isSaving_ ? kind_.saveRoutine : kind_.openRoutine; }
    Ending Read();
    Ending ReadEntries(platform::TextStream& stream);
    bool IsListed(std::string_view text) const;
    void Take(std::string_view text, const text::DateTime& stamp);
    void AskAboutDamage();
    void BeginAnew();
    std::string FileText() const;

    Session& session_;
    HistoryKind kind_;
    HistoryRows rows_;
    bool isSaving_ = false;
};

} // namespace tarvix::session
