#include "RecordLayout.h"

extern const size_t c_layoutInC[];
const size_t c_layoutInC[] = RECORD_LAYOUT;
