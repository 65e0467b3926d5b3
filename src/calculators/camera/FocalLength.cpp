#include "calculators/camera/FocalLength.h"

namespace zenivo {

std::vector<float> FocalLength::standardFocalLengths() {
  return {0.007F, 0.008F, 0.009F, 0.01F,  0.011F, 0.012F, 0.013F, 0.014F, 0.015F, 0.016F, 0.017F,
          0.018F, 0.019F, 0.02F,  0.021F, 0.022F, 0.023F, 0.024F, 0.025F, 0.026F, 0.027F, 0.028F,
          0.029F, 0.03F,  0.032F, 0.033F, 0.035F, 0.04F,  0.045F, 0.05F,  0.055F, 0.056F, 0.06F,
          0.065F, 0.07F,  0.075F, 0.08F,  0.085F, 0.09F,  0.095F, 0.1F,   0.105F, 0.135F, 0.15F,
          0.18F,  0.2F,   0.25F,  0.3F,   0.4F,   0.5F,   0.6F,   0.7F,   0.8F,   0.9F,   1.0F};
}

}  // namespace zenivo
