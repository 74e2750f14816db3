// Accelerator tables.
#pragma once

namespace user {

void forgetAccelerators();

} // namespace user
