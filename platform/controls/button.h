// BUTTON: push buttons.
#pragma once

namespace controls {

void registerButton();

} // namespace controls
