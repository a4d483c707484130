// Must not compile: a bool (or a Boolean) given to Variant would come out as a Long.
#include <varnex/varnex.hpp>

int main() {
  varnex::Variant v = VALUE;
  return v.IsEmpty() ? 0 : 1;
}
