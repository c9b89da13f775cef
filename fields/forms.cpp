#include "fields/forms.h"

#include "text/case.h"

#include <algorithm>

namespace tarvix::fields {

Form* Forms::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        all, [name](const Form* form) { return text::EqualNoCase(form->Name(), name); });
    return found == all.end() ? nullptr : *found;
}

} // namespace tarvix::fields
