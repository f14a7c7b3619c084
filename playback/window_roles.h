// What assistive technology takes the program's windows for.
#pragma once

namespace orvanta {

/// From now on every window that is a plain widget is called a window; the toolkit calls it by a
/// word for an area of no meaning. Dialogs of the toolkit's kind are called so anyway.
void tellWindowRoles();

} // namespace orvanta
