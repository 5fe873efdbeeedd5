#pragma once

// The root of the classes that events name as their sender. A handler that needs more than the identity casts it with
// dynamic_cast. Nobody deletes through it.
class TObject {
public:
    TObject() = default;
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;

protected:
    virtual ~TObject() = default;
};
