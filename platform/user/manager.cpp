// Resets the parts of the window manager.
#include "user/manager.h"

#include "user/accelerator.h"
#include "user/classes.h"
#include "user/focus.h"
#include "user/icon.h"
#include "user/keys.h"
#include "user/menu.h"
#include "user/message.h"
#include "user/program_window.h"
#include "user/stylus.h"
#include "user/table.h"
#include "user/timer.h"

namespace user {

void reset()
{
    forgetWindows();
    forgetProgramWindow();
    forgetClasses();
    forgetMessages();
    forgetTimers();
    forgetFocus();
    forgetKeys();
    forgetStylus();
    forgetAccelerators();
    forgetMenus();
    forgetIcons();
}

} // namespace user
