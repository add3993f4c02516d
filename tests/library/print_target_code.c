/* Which of the library's levels the loader has picked. */
#include <stdio.h>

#include "qsvgen.h"

int main(void) {
    return puts(qsvgenGetLibVersion()->targetCode) < 0;
}
