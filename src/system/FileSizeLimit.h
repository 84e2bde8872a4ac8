#pragma once

namespace portico::system {

/// A file that may not grow any more fails as on a full disk, instead of ending the program in the middle of a write.
void SurviveFileSizeLimit();

} // namespace portico::system
