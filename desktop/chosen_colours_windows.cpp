// Windows has one palette, black on nearly white, and those of high contrast.
#include "desktop/chosen_colours.h"

#include <windows.h>

namespace desktop {

bool coloursAreChosen() {
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

} // namespace desktop
