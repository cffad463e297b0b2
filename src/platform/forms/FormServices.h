#pragma once

class Form;

// What a form needs of the text store. `Common` is the one implementation.
class FormServices
{
public:
    virtual ~FormServices() = default;

    virtual void LoadProperties(Form &form) = 0;
    virtual void SaveProperties(Form &form) = 0;
};
