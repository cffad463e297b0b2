#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/FormServices.h"

#include <functional>

// A text store without texts: a form stays as it was designed, or as `stored` makes it when it loads.
class NoTexts : public FormServices
{
public:
    std::function<void(Form &)> stored;
    std::function<void(Form &)> saved;

    void LoadProperties(Form &form) override
    {
        if (stored)
            stored(form);
    }
    void SaveProperties(Form &form) override
    {
        if (saved)
            saved(form);
    }
};
