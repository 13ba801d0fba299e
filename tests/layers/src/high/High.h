#pragma once
#include "low/Low.h"
int High();
