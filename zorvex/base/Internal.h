// The key to what is for the library only.
#pragma once

namespace zorvex {

/// A member that takes an `Internal` is called by the library itself. Public headers only declare the class,
/// and this header is not installed, so that a host cannot make one.
class Internal {};

}  // namespace zorvex
