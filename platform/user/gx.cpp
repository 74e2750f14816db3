// The game input library: holding the application buttons.
#include "gx.h"

#include "user/keys.h"

int GXOpenInput()
{
    user::holdButtons(true);
    return 1;
}

int GXCloseInput()
{
    user::holdButtons(false);
    return 1;
}
