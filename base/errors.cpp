#include "base/errors.h"

namespace kehystin::base {

std::string error_text(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::overflow:
        return "Ylivuoto";
    case ErrorNumber::out_of_memory:
        return "Muisti ei riitä";
    case ErrorNumber::subscript_out_of_range:
        return "Indeksi on alueen ulkopuolella";
    case ErrorNumber::bad_file_name:
        return "Virheellinen tiedostonimi tai -numero";
    case ErrorNumber::file_not_found:
        return "Tiedostoa ei löydy";
    case ErrorNumber::file_already_open:
        return "Tiedosto on jo avoinna";
    case ErrorNumber::disk_io:
        return "Laitteen luku- tai kirjoitusvirhe";
    case ErrorNumber::disk_full:
        return "Levy on täynnä";
    case ErrorNumber::input_past_end:
        return "Tiedoston loppu ohitettu";
    case ErrorNumber::path_file_access:
        return "Polun tai tiedoston käyttövirhe";
    case ErrorNumber::path_not_found:
        return "Polkua ei löydy";
    case ErrorNumber::invalid_property_value:
        return "Virheellinen ominaisuuden arvo";
    case ErrorNumber::invalid_picture:
        return "Virheellinen kuva";
    case ErrorNumber::cancelled:
        return "Toiminto peruutettiin";
    }
    return "Sovelluksen määrittämä virhe";
}

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, error_text(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, std::string const& text)
    : std::runtime_error(text), number_(number) {}

} // namespace kehystin::base
