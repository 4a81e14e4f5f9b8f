#pragma once

// All the elements that the windows are made of.
#include "platform/buttons.h"
#include "platform/label.h"
#include "platform/name_box.h"
#include "platform/picture_elements.h"
#include "platform/shapes.h"
