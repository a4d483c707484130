// wine's msxml2.h declares ISAXXMLFilter before its base interface, which a native C++ compiler
// refuses; the server does not use it, so the target skips that one declaration.
#define __ISAXXMLFilter_INTERFACE_DEFINED__
#include_next <msxml2.h>
