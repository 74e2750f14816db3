// The accelerators' place in the life of the handheld.
#pragma once

namespace user {

void forgetAccelerators();

} // namespace user
