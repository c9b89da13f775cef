#include "cli/beside_progress.h"

#include "cli/messages.h"

namespace tarvix::cli {

BesideProgress::BesideProgress(Host& host)
    : host_(host),
      inner_(host.errIsTerminal && host.outIsTerminal ? host.out.rdbuf(this) : nullptr) {}

BesideProgress::~BesideProgress() {
    if (inner_ == nullptr) return;
    // Another buffer would take a failure for mended.
    const auto state = host_.out.rdstate();
    host_.out.rdbuf(inner_);
    host_.out.setstate(state);
}

std::streamsize BesideProgress::xsputn(const char* text, std::streamsize size) {
    ClearProgress(host_);
    return inner_->sputn(text, size);
}

BesideProgress::int_type BesideProgress::overflow(int_type character) {
    ClearProgress(host_);
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(0);
    return inner_->sputc(traits_type::to_char_type(character));
}

int BesideProgress::sync() {
    return inner_->pubsync();
}

} // namespace tarvix::cli
