#pragma once

namespace velura {

/// Whether the file "/tmp/vlr_gradients_off" exists, which turns every gradient off. The file system is
/// asked at most once a second; until then the last answer holds.
bool VLRGradientsDisabled();

}  // namespace velura
