// The same for tests.
#pragma once

#include "core.h"
#include "support/PrintText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
