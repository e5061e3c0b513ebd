// Draws a form's figures at their places.
#pragma once

#include <span>

#include "pension/formcoordinates.h"
#include "pension/formoverlay.h"

namespace lm {

class clsPDFCreator;

// On the open page, in millimetres. What fails is in the writer's ErrDescription.
void DrawFigures(clsPDFCreator& pdf, std::span<const FormPlace> places, int page,
                 const FormFigures& figures);

}  // namespace lm
