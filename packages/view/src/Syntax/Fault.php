<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

/** What a message of the engine says: what is wrong, in which template, and at which tag. */
final readonly class Fault
{
    private const string ABOUT_A_TAG = '/^(Missing|Unexpected) closing |^Bad formated parameter|^\w+ block bad parameter/';

    /** @param ?Tag $tag null for what no tag tells, as that sections are nested too deeply */
    private function __construct(public string $template, public string $what, public ?Tag $tag) {}

    /**
     * Files are looked for as the engine does, along include_path: it has to be as it was for the call.
     *
     * @param string $message "Missing closing tag in part.tpl"
     * @param string $template the name that the engine was given
     */
    public static function of(string $message, string $template): self
    {
        [$what, $name] = self::split($message, $template);
        $isAboutTag = preg_match(self::ABOUT_A_TAG, $what) === 1;
        foreach ($isAboutTag ? Source::withIncludes($name) : [] as $source) {
            $tag = new FaultFinder($what)->find($source->text);
            if ($tag !== null) {
                return new self($source->name, $what, $tag);
            }
        }

        return new self($name, $what, null);
    }

    /** @return array{string, string} what is wrong, and the name of the template */
    private static function split(string $message, string $template): array
    {
        $end = strlen($message);
        while (($end = strrpos(substr($message, 0, $end), ' in ')) !== false) {
            $name = substr($message, $end + strlen(' in '));
            if (Source::named($name) !== null) {
                return [substr($message, 0, $end), $name];
            }
        }

        return [$message, $template];
    }
}
