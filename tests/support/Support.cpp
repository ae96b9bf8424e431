// Keeps the support library from being empty until its first helper arrives.
