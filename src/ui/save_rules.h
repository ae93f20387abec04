#pragma once

#include "document/closing.h"
