! The same as utf_ApartFromC, by the names that a Fortran compiler gives to external routines.
subroutine utf_apart_from_fortran(tensor, apart)
    implicit none
    double precision, intent(in) :: tensor(6)
    double precision, intent(out) :: apart
    double precision :: out(7), diagonal(6), full(3, 3)
    external utf_calprinquat, utf_quatrot
    call utf_calprinquat(tensor, out, 0, 0, 3, 3)
    diagonal = 0
    diagonal(1:3) = out(1:3)
    call utf_quatrot(diagonal, (/ out(7), out(4:6) /), full, 6)
    apart = max(abs(full(1, 1) - tensor(1)), abs(full(2, 2) - tensor(2)), abs(full(3, 3) - tensor(3)), &
                abs(full(1, 2) - tensor(4)), abs(full(1, 3) - tensor(5)), abs(full(2, 3) - tensor(6)))
end subroutine
