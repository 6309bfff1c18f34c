// SPDX-License-Identifier: MIT
#include "core/device_news.h"

#include <string>

#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "state/program_state.h"

namespace taviro {

void TellDevice(DeviceNews nNews) {
    switch (nNews) {
        case DeviceNews::None:
            return;
        case DeviceNews::Gone:
            LogEvent(L"Joystick lost");
            return SpeakIt(L"Joystick se neozývá. Mapu teď ovládají šipky a Enter.");
        case DeviceNews::Found:
            Program.bJoystickPresent = true;
            LogEvent(L"Joystick found, device " + std::to_wstring(Joystick.nJoyId));
            return SpeakIt(L"Joystick je připojený.");
    }
}

}  // namespace taviro
