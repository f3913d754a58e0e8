#pragma once

namespace System {

/// Lets the heap grow by a large step at once, in large pages where the system offers them: a document is opened into
/// memory that is new to the process, and small pages cost more time there than the reading itself. To be called first.
void TakeHeapInLargePages();

}  // namespace System
