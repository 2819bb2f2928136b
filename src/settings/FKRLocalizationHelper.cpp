#include "FKRLocalizationHelper.h"
// Placeholder so the settings library configures; replaced by the real lookup.
