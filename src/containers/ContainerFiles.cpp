#include "containers/ContainerFiles.h"

namespace pd {

// Containers cannot be created yet, so there is nothing to write; and files found on disk are left
// exactly as they are, so that no container of the user's is lost before this program can show it.
void WriteContainerFiles(Workspace&) {}

void ReadContainerFiles(Workspace&) {}

} // namespace pd
