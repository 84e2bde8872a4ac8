#pragma once

#include "platform/FormDesign.h"

namespace portico {

// How the dialogs are made up. Their names are the names of their classes.

extern const FormDesign InstrumentDialogDesign;
extern const FormDesign OptionsDesign;
extern const FormDesign AboutDesign;
extern const FormDesign TimeoutDialogDesign;
extern const FormDesign ErrorsDesign;
extern const FormDesign SearchDesign;
extern const FormDesign TimingDesign;
extern const FormDesign RepeatDialogDesign;
extern const FormDesign QueryDialogDesign;

} // namespace portico
