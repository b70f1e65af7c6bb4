#pragma once

namespace zorva {

/// Forgets every key and mouse button that was pressed before now and not handled yet, so that it
/// cannot act on a window that its maker had not seen. Everything else that waits is handled.
void DiscardQueuedInput();

}  // namespace zorva
