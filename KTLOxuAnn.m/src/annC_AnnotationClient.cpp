#include <annC_AnnotationClient.h>

annC_AnnotationClient::annC_AnnotationClient() = default;
annC_AnnotationClient::~annC_AnnotationClient() = default;

void annC_AnnotationClient::AnnotationDeleted(const cow_String&, unsigned) {}

void annC_AnnotationClient::AnnotationModified(const cow_String&, unsigned) {}

void annC_AnnotationClient::VerifyColorValue(const cow_String&) {}

double annC_AnnotationClient::GetWidth(const annC_Text&)
{
    return 0.0;
}

double annC_AnnotationClient::GetHeight(const annC_Text&)
{
    return 0.0;
}
