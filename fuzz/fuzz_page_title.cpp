#include "actions/sources/character_references.h"
#include "actions/sources/clean_names.h"
#include "actions/sources/page_title.h"
#include "fuzz/fuzz_fixture.h"
#include "platform/names.h"
#include "text/characters.h"

#include <string>

// A page from anywhere: its title, and the part of a name that it becomes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    static fuzz::Fixture fixture;
    const std::string_view page(reinterpret_cast<const char*>(data), size);
    const auto title = actions::TitleOf(fixture.machine.contentTypes, page);
    if (title) {
        fuzz::Require(text::IsValidUtf8(*title));
        const std::string line = actions::OnOneNameLine(actions::CleanTitle(*title));
        fuzz::Require(text::IsValidUtf8(line));
        fuzz::Require(line.empty() || platform::CanBeName(platform::PieceToDrive(line) + " x"));
    }
    const std::string decoded = actions::DecodeReferences(page);
    if (text::IsValidUtf8(page)) fuzz::Require(text::IsValidUtf8(decoded));
    fixture.Put("C:\\p.htm", data, size);
    const auto read =
        actions::ReadTitle(fixture.machine.disk, fixture.machine.contentTypes, "C:\\p.htm");
    fuzz::Require(read && read->title == title && read->isWhole);
    return 0;
}
