#include "shell/ui/MainBoard.h"

namespace shell {

MainBoard &mainBoard()
{
    static MainBoard board;
    return board;
}

} // namespace shell
