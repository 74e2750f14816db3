// STATIC: texts and pictures of dialogs.
#pragma once

namespace controls {

void registerStatic();

} // namespace controls
