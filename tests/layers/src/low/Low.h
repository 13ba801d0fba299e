#pragma once
int Low();
