#include "displaysize.h"

int DisplaySize::widgetX = 0;
int DisplaySize::widgetY = 0;
