#include <vwr_Canvas.h>

vwr_Canvas::~vwr_Canvas() = default;
