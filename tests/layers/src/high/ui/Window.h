// Allowed: a window uses Qt and the floors below it.
#pragma once
#include <QWidget>

#include "high/High.h"
