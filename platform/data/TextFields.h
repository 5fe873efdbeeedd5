#pragma once

#include "data/TField.h"

// Fields of text with a greatest length (Size, in characters).

class TStringField : public TField {
    MRV_CLASS
    explicit TStringField(TComponent* owner = nullptr)
        : TStringField(owner, ftString, 20)
    {
    }
    // Padded with blanks to its size in the database.
    bool FixedChar() const { return DataType() == ftFixedChar || DataType() == ftFixedWideChar; }
    virtual void SetFixedChar(bool fixed);
    void AssignDef(const TFieldDef& def) override;

protected:
    using TField::TField;
};

class TWideStringField : public TStringField {
    MRV_CLASS
    explicit TWideStringField(TComponent* owner = nullptr)
        : TStringField(owner, ftWideString, 20)
    {
    }
    void SetFixedChar(bool fixed) override;
};

class TGuidField : public TStringField {
    MRV_CLASS
    explicit TGuidField(TComponent* owner = nullptr)
        : TStringField(owner, ftGuid, 38)
    {
    }
};
