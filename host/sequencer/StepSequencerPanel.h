#pragma once

#include "cocoa/AppKit.h"

namespace host {

/// A panel with a step sequencer: rows with a header each, and their steps.
class StepSequencerPanel {
 public:
  explicit StepSequencerPanel(double scale);
  ~StepSequencerPanel();
  StepSequencerPanel(const StepSequencerPanel&) = delete;
  StepSequencerPanel& operator=(const StepSequencerPanel&) = delete;

  [[nodiscard]] NSWindow window() const { return panel_; }

 private:
  cocoa::Ref<NSWindow> panel_;
};

/// Adds the colour of the row headers to the platform's colour class, where the host keeps it.
void attachStepSequencerColors();

}  // namespace host
