// What several parts ask of the X server, beside what the toolkit offers.
#pragma once

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace orvanta {

/// An answer of the X server, which the caller owns.
template <typename Reply> using X11Reply = std::unique_ptr<Reply, decltype(&std::free)>;

/// The toolkit's own connection; null when this display system is another one.
[[nodiscard]] xcb_connection_t* x11Connection();

/// The number that stands for a name; XCB_ATOM_NONE when the server does not answer.
[[nodiscard]] xcb_atom_t x11Atom(xcb_connection_t* connection, const char* name);

} // namespace orvanta
