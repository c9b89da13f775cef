#pragma once

#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>
