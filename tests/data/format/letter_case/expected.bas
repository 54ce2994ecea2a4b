PRIVATE SUB OLD()
  IF A = 1 THEN
    PRINT "A"
  ELSE
    PRINT "B"
  END IF
  for i = 1 to 10
    if i = 5 then exit for
  next
  SELECT CASE A
    case 1
      b = 1
    CASE ELSE
      b = 2
  end select
  do until b = 3
    b = b + 1
  LOOP
end sub
