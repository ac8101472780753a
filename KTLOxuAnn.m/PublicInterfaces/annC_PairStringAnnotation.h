#pragma once

#include <annC_Annotation.h>
#include <cow_COW.h>
#include <cow_String.h>

/// A share of an annotation.
using annC_AnnotationCow = cow_COW<annC_Annotation>;

/// An annotation and its name.
struct annC_PairStringAnnotation
{
    cow_String name;
    annC_AnnotationCow annotation;
};
