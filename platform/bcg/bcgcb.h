// bcgcb.h - the docking toolkit: all that a user of it includes
#pragma once

#include <afxwin.h>
#include <afxcmn.h>
#include <afxext.h>

#include "bcgdefs.h"
#include "bcgdialog.h"
