#pragma once

// All value types of the measuring library.

#include "ZorContour.h"
#include "ZorContourArray.h"
#include "ZorImage.h"
#include "ZorLine.h"
#include "ZorMatrix.h"
#include "ZorPoint.h"
#include "ZorPointArray.h"
#include "ZorPointView.h"
#include "ZorROI.h"
#include "ZorROIArray.h"
#include "ZorRegion.h"
#include "ZorVar.h"
#include "ZorVarArray.h"
