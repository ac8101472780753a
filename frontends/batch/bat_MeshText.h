#pragma once

#include <string>

struct bat_MeshHealth;

/// The health for people: labelled lines, a histogram of the shape factors, a line for each kind of flaw that
/// there is, and the verdict last.
std::string bat_MeshText(const bat_MeshHealth& health);

/// "fit for use", or "not fit for use: " and what hinders.
std::string bat_MeshVerdict(const bat_MeshHealth& health);

/// "0.3 to 0.4": the shape factors of a class.
std::string bat_MeshClassText(std::size_t number);
