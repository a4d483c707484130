// mingw-w64's simpdata.h, read with wine's headers.
#include "mingw_names.h"
#include_next <simpdata.h>
