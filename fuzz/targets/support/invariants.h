#pragma once

namespace fuzz {

// Holds the shared records against each other: what one counts the others have, and no index points
// outside. Ends the process where they do not agree.
void checkRecords();

}  // namespace fuzz
