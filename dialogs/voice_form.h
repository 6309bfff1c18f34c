// SPDX-License-Identifier: MIT
// The voice form. It is loaded hidden at start-up and owns the speech engine for as long as it is
// loaded; the next use of speech loads it again.
#pragma once

#include <memory>

#include "forms/form.h"

namespace taviro {

class VoiceForm : public forms::Form {
  public:
    VoiceForm();
};

/// One for the whole run, made anew only by tests.
inline std::unique_ptr<VoiceForm> FrmVoice = std::make_unique<VoiceForm>();

}  // namespace taviro
