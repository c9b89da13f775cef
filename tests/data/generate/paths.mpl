/t/a b.txt
/t/sub/Äpfel.txt
*EOF
