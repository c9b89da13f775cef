#pragma once

namespace tarvix::fields {

class Form;

// Gives every control of `to` the values that the control of the same name has in `from`: a form
// of the same class.
void CopyFields(const Form& from, Form& to);

} // namespace tarvix::fields
