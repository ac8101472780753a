#include <scr_Exceptions.h>
#include <scr_Pictures.h>

#ifdef ORVEX_WITH_VIEWER

#include <annC_AnnotationContainer.h>
#include <memory>
#include <pybind11/pybind11.h>
#include <typeinfo>
#include <vwr_AnnotationClient.h>
#include <vwr_Picture.h>
#include <vwr_PictureError.h>
#include <vwr_Scene.h>

static_assert(scr_Pictures::LARGEST == vwr_Picture::LARGEST);

namespace
{
std::unique_ptr<vwr_AnnotationClient> client;
}

void scr_Pictures::Start()
{
    if (!annC_AnnotationClient::Exists() ||
        typeid(annC_AnnotationClient::Instance()) == typeid(annC_AnnotationClient))
        client = std::make_unique<vwr_AnnotationClient>();
}

void scr_Pictures::Stop()
{
    client.reset();
}

void scr_Pictures::Save(const std::string& path, int width, int height,
                        const annC_AnnotationContainer& annotations)
{
    // What other threads edit meanwhile is not what is drawn.
    const annC_AnnotationContainer drawn(annotations);
    vwr_Scene scene;
    scene.width = width;
    scene.height = height;
    scene.annotations = &drawn;
    try
    {
        const pybind11::gil_scoped_release others;
        vwr_Picture::Save(path, scene);
    }
    catch (const vwr_PictureError& error)
    {
        if (error.GetCode() != 0)
            scr_Exceptions::ThrowSystem(error.GetCode(), path);
        scr_Exceptions::Throw("ValueError", error.what());
    }
}

#else

void scr_Pictures::Start() {}
void scr_Pictures::Stop() {}

void scr_Pictures::Save(const std::string&, int, int, const annC_AnnotationContainer&)
{
    scr_Exceptions::Throw("OrvexError", "pictures are off: this module was built without the library cairo");
}

#endif
