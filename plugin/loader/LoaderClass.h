#pragma once

namespace velura {

/// Registers `LoaderClass`, the class that brings the plug-in up: the component that loads the bundle into
/// the host makes one and sends it `initialize`, once, on the main thread.
void defineLoaderClass();

}  // namespace velura
