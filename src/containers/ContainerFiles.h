#pragma once
// The container files `Containers/<n>.con`: one per container with everything inside it.

namespace pd {

class Workspace;

// Rewrites the container files from the live containers (a step of every save). False when a file
// could not be written (a full disk): that file and the ones after it keep their last version.
bool WriteContainerFiles(Workspace& ws);
// Reads the container files after the workspace file, then nests the containers.
void ReadContainerFiles(Workspace& ws);
// "&Capture/Nested Containers": switching it off takes every nested container out onto the background.
void mnuCaptureContainers_Click(Workspace& ws);

} // namespace pd
