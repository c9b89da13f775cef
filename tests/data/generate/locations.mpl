/t
/d
*EOF
