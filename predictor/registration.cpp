// SPDX-License-Identifier: MIT
#include "predictor/registration.h"

namespace taviro::predictor {

namespace {

const com::ServerClass DICTIONARY_CLASS{
    .strId = L"{8D9C41B6-2E57-4F0A-9B63-C1A4F2D7E850}",  // that of win32/server.cpp
    .strName = L"Presager.Dict",
    .strDescription = L"Slovník programu Taviro"};

}  // namespace

com::Registration DictionaryRegistration(const std::wstring& strServerPath) {
    return RegistrationOf(DICTIONARY_CLASS, strServerPath);
}

}  // namespace taviro::predictor
