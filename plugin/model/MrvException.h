#pragma once

#include "rtl/SysUtils.h"

// Index errors of the field lists.
MRV_EXCEPTION(EMorvaneException, Exception);
