#include "fields/duplicate_question.h"

#include "text/characters.h"

namespace tarvix::fields {

std::string TextOf(const AskedObject& object) {
    return text::Concat({object.folder, "\r\n", object.name, "\r\n of type ",
                         object.isFile ? "File " : "Folder ", "\r\n\r\nSize: ", object.size,
                         "\r\nVersion: ", object.version, "\r\nfor OS: ", object.os,
                         "\r\nDate: ", object.date});
}

std::string TextOf(const DuplicateQuestion& question) {
    return text::Concat({question.question, " \r\n\r\n\r\n", TextOf(question.existing),
                         "\r\n\r\nwith This One?\r\n\r\n", TextOf(question.thisOne),
                         "\r\n\r\n\r\n\r\n\r\n\r\n", question.rule});
}

} // namespace tarvix::fields
