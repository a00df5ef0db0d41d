#pragma once

/// What a controller says in a status message of its parameter store. The pendant has a text for
/// each; docs/link-protocol.md lists them.
namespace storeword {

constexpr char kDamaged[] = "storeDamaged"; ///< what is stored cannot be read
constexpr char kFailed[] = "storeFailed"; ///< nothing can be stored
constexpr char kRestored[] = "storeRestored"; ///< a copy was put back, or an empty store begun

} // namespace storeword
