#pragma once

/// What a controller says in a status message of a message that it has not carried out. The pendant
/// has a text for it; docs/link-protocol.md lists it.
namespace refusalword {

constexpr char kRefused[] = "refused"; ///< with the keys "id" and "reason"

} // namespace refusalword
