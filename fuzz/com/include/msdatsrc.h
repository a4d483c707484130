// mingw-w64's msdatsrc.h, read with wine's headers.
#include "mingw_names.h"
#include_next <msdatsrc.h>
