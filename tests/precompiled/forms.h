#pragma once

#include "tests/forms/window_fixture.h"

#include <QtTest>
#include <QtWidgets>
