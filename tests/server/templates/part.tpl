{row::[*]}. {row::*} for {token}
