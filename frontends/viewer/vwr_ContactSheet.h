#pragma once

#include <annC_AnnotationContainer.h>
#include <vwr_Scene.h>

#include <string>
#include <vector>

class annC_Annotation;

/// A picture that shows every value of some properties beside each other, to be looked at.
class vwr_ContactSheet
{
public:
    /// The names of the sheets, which files take.
    static const std::vector<std::string>& Names();
    /// The sheet of that name; one that is not in Names() is empty.
    explicit vwr_ContactSheet(const std::string& name);

    /// Looks at this sheet, which must outlive it.
    vwr_Scene Scene() const;

private:
    void Heads();
    void Lines();
    void Texts();
    void Anchors();
    void Stacking();
    void Parts();
    /// In front of what is there, under the next number.
    void Add(const annC_Annotation& annotation);
    void Label(double x, double y, const std::string& text);

    vwr_Scene scene_;
    annC_AnnotationContainer annotations_;
};
