// The same for tests of screens.
#pragma once

#include "support/PrintText.h"
#include "widgets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
